#pragma once

#include <string>
#include <vector>

#include "cli/output.h"
#include "exchange/row_reader.h"

using Rows = std::vector<core::CatalogRow>;

// As `export` writes them.
inline std::string written(const Rows& rows, exchange::Format format) {
    std::string text = format == exchange::Format::Csv ? cli::csvHeader() : "";
    for (const auto& row : rows)
        text += format == exchange::Format::Csv ? cli::csvRow(row) : cli::jsonRow(row, platform::Drives());
    return text;
}
