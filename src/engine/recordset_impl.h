#pragma once

#include "engine/recordset.h"
#include "engine/rows/select.h"

namespace engine {

// A select and, once one is asked for, its rows: a recordset that is only counted fetches none.
struct Recordset::Impl {
    Impl(Select asked, std::unique_ptr<Rows> known) : select(std::move(asked)), rows(std::move(known)) {}

    // Opens the rows that need no sorting; of the others only finds out whether the file can be read now.
    [[nodiscard]] Result<> begin();

    [[nodiscard]] bool atEnd();
    [[nodiscard]] long long count();

    // What is asked for, or `otherwise` when there was no memory for it.
    template <class T, class Ask>
    T guarded(T otherwise, Ask ask);

    Select select;
    std::unique_ptr<Rows> rows;
    std::optional<long long> counted;
    std::optional<Error> failure;

  private:
    [[nodiscard]] Result<> open();
};

}  // namespace engine
