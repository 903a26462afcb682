#include "browse/listing.h"

#include "lists/row_items.h"

namespace browse {

void list(engine::Database& database, const Listing& listing, core::Language language, const ItemSink& sink,
          bool lowerCaseKeys) {
    lists::RowItems items(language);
    if (auto rows = database.OpenRecordset(listing.folders))
        for (; !rows->Eof(); rows->MoveNext()) sink(items.folderItem(core::readRow(*rows)));
    if (auto rows = database.OpenRecordset(listing.files))
        for (; !rows->Eof(); rows->MoveNext()) sink(items.fileItem(core::readRow(*rows), lowerCaseKeys));
}

}  // namespace browse
