#pragma once

#include <functional>
#include <string>
#include <vector>

#include "core/serial_date.h"
#include "scan/walk_observer.h"
#include "support/catalogue_fixture.h"

namespace test {

// Counts what it is told, and does what the test wants where the walk gives way: between the row of a folder
// and the look into it.
struct Watcher : scan::WalkObserver {
    std::int64_t topLevel = -1;
    int topDone = 0, yields = 0, statuses = 0;
    std::vector<std::string> unread, tooDeep, kernel;
    std::function<bool()> onYield;

    void started(std::int64_t folders) override { topLevel = folders; }
    void status(const scan::Counts&) override { ++statuses; }
    void topLevelDone() override { ++topDone; }
    void gap(scan::Gap gap, std::string_view path) override {
        if (gap == scan::Gap::Facts) return;
        (gap == scan::Gap::Depth ? tooDeep : gap == scan::Gap::Kernel ? kernel : unread).emplace_back(path);
    }
    bool yield(scan::RowSink&) override {
        ++yields;
        return onYield && onYield();
    }
};

// "nivel ruta carpeta archivo largo", a dash for what is absent.
inline std::string summary(const core::CatalogRow& row) {
    return row.nivel + ' ' + row.ruta + ' ' + row.carpeta + ' ' + row.archivo.value_or("-") + ' ' +
           (row.largo ? std::to_string(*row.largo) : "-");
}

inline std::vector<std::string> summaries(const std::vector<core::CatalogRow>& rows) {
    std::vector<std::string> lines;
    for (const core::CatalogRow& row : rows) lines.push_back(summary(row));
    return lines;
}

}  // namespace test
