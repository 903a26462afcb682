#include "browse/listing.h"

namespace browse {

engine::Result<> list(engine::Database& database, const ListingStatements& listing, core::Language language,
                      lists::RowMemory& memory, const ItemSink& sink, bool lowerCaseKeys) {
    const lists::RowItems items(language, memory, {.lowerCaseKeys = lowerCaseKeys});
    const auto run = [&](const std::string& sql, const auto& itemOf) -> engine::Result<> {
        auto rows = database.OpenRecordset(sql);
        if (!rows && rows.error().number == engine::error::syntaxInExpression) return {};
        if (!rows) return std::unexpected(rows.error());
        for (; !rows->Eof(); rows->MoveNext()) sink(itemOf(*rows));
        if (rows->error()) return std::unexpected(*rows->error());
        return {};
    };
    auto listed = run(listing.folders, [&](const auto& row) { return items.folderItem(row); });
    if (!listed) return listed;
    return run(listing.files, [&](const auto& row) { return items.fileItem(row); });
}

}  // namespace browse
