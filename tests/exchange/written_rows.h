#pragma once

#include "cli/output.h"
#include "exchange/row_reader.h"

namespace test {

inline std::string written(const std::vector<core::CatalogRow>& rows, exchange::Format format) {
    std::string text = format == exchange::Format::Csv ? cli::csvHeader() : "";
    for (const auto& row : rows)
        text += format == exchange::Format::Csv ? cli::csvRow(row) : cli::jsonRow(row, platform::Drives());
    return text;
}

}  // namespace test
