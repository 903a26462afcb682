#pragma once

#include <optional>

#include "platform/jet/connection.h"
#include "platform/jet/query.h"
#include "platform/jet/recordset.h"
#include "platform/jet/units.h"

namespace jet {

struct Recordset::Impl {
    std::shared_ptr<Connection> connection;
    std::shared_ptr<Units> units;
    std::unique_ptr<Query> query;
    Prepared rows;
    bool atEnd = false;
    std::optional<long long> count;
    std::optional<Error> failure;

    [[nodiscard]] Result<> open();
    void step();
    void countRows();
};

}  // namespace jet
