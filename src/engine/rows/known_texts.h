#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/dialect/literals.h"
#include "engine/dialect/statement.h"

namespace engine {

// What is known of some rows: the texts of a few columns, which they all share. A text that is null is known
// too.
class KnownTexts {
  public:
    using Text = std::optional<std::string>;

    void set(Column column, const Text& text) { m_texts[static_cast<std::size_t>(column)] = &text; }
    [[nodiscard]] bool has(Column column) const { return m_texts[static_cast<std::size_t>(column)]; }
    [[nodiscard]] const Text& operator[](Column column) const {
        return *m_texts[static_cast<std::size_t>(column)];
    }

  private:
    std::array<const Text*, columns.size()> m_texts{};
};

enum class Truth { No, Null, Yes };

// Whether what is known is enough to decide a condition, for all these rows alike.
[[nodiscard]] bool isDecidable(const Condition& condition, const KnownTexts& known);

// Decides a decidable condition, with the same outcome as in the engine.
[[nodiscard]] Truth decide(const Condition& condition, const KnownTexts& known,
                           const std::vector<Literal>& literals);

// False only when no such row can meet the condition.
[[nodiscard]] bool mayHold(const Condition& condition, const KnownTexts& known,
                           const std::vector<Literal>& literals);

}  // namespace engine
