#include "browse/listing.h"

namespace browse {

void list(engine::Database& database, const Listing& listing, core::Language language,
          lists::RowMemory& memory, const ItemSink& sink, bool lowerCaseKeys) {
    const lists::RowItems items(language, memory, {.lowerCaseKeys = lowerCaseKeys});
    if (auto rows = database.OpenRecordset(listing.folders))
        for (; !rows->Eof(); rows->MoveNext()) sink(items.folderItem(*rows));
    if (auto rows = database.OpenRecordset(listing.files))
        for (; !rows->Eof(); rows->MoveNext()) sink(items.fileItem(*rows));
}

}  // namespace browse
