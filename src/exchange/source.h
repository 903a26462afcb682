#pragma once

#include <cstdio>

#include "exchange/row_reader.h"

namespace exchange {

// The bytes of a file, and the place in it.
class Source {
  public:
    static constexpr int end = EOF;
    static constexpr int tooLong = -2;

    explicit Source(std::FILE* file) : m_file(file) {}

    void beginRow() {
        m_row = m_line;
        m_length = 0;
    }
    // A byte, `end`, or `tooLong` when the row is too long to be one.
    int take() {
        if (++m_length > longestRow) return tooLong;
        const int byte = getc_unlocked(m_file);
        if (byte == '\n') ++m_line;
        return byte;
    }
    [[nodiscard]] long long line() const { return m_row; }

    [[nodiscard]] std::unexpected<Damage> damage(core::Bilingual reason, std::string column = {}) const {
        return std::unexpected(Damage{m_row, reason, std::move(column)});
    }
    // Why no row can be made when take() gave this instead of a byte.
    [[nodiscard]] std::unexpected<Damage> damageAt(int noByte) const;
    [[nodiscard]] bool failed() const { return std::ferror(m_file) != 0; }

  private:
    static constexpr long long longestRow = 16 << 20;
    std::FILE* m_file;
    long long m_line = 1;
    long long m_row = 1;
    long long m_length = 0;
};

// The row that the fields make.
[[nodiscard]] std::expected<core::CatalogRow, Damage> rowOf(Fields& fields, const Source& source);

class CsvReader : public RowReader {
  public:
    explicit CsvReader(std::FILE* file) : m_source(file) {}
    std::expected<std::optional<core::CatalogRow>, Damage> next() override;
    [[nodiscard]] long long line() const override { return m_source.line(); }

  private:
    // False at the end of the file.
    [[nodiscard]] std::expected<bool, Damage> record(Fields& fields);
    // The character behind the field.
    [[nodiscard]] int plainField(int first, std::string& field);
    [[nodiscard]] int quotedField(std::string& field);
    [[nodiscard]] std::expected<bool, Damage> header();

    Source m_source;
    bool m_headerRead = false;
};

class JsonReader : public RowReader {
  public:
    explicit JsonReader(std::FILE* file) : m_source(file) {}
    std::expected<std::optional<core::CatalogRow>, Damage> next() override;
    [[nodiscard]] long long line() const override { return m_source.line(); }

  private:
    [[nodiscard]] std::expected<Fields, Damage> fieldsOf(const std::string& line) const;

    Source m_source;
};

}  // namespace exchange
