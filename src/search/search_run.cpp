#include "search/search_run.h"

#include <string_view>

#include "core/failure.h"

namespace search {
namespace {

// The rows are counted as they are read: asking the engine first would cost a second walk through the table.
engine::Result<> runPass(engine::Result<engine::Recordset>& rows, const Pass& pass, long long& count,
                         ResultSink& sink) {
    if (!pass.addsToCount) count = 0;
    if (!rows) return std::unexpected(rows.error());
    if (pass.kind == PassKind::Folder) sink.clear();
    for (; !rows->Eof(); rows->MoveNext()) {
        sink.add(*rows, pass);
        ++count;
    }
    if (const engine::Error* error = rows->error()) return std::unexpected(*error);
    return {};
}

}  // namespace

std::string countersText(const FoundCounts& counters, const core::Rotulos& rotulos) {
    return rotulos.rotulocarpetas + std::to_string(counters.carpetasencontradas) + rotulos.rotuloarchivos +
           std::to_string(counters.archivosencontrados);
}

engine::Result<> runPasses(engine::Database& database, const std::vector<Pass>& passes, FoundCounts& counters,
                           ResultSink& sink) {
    sink.clear();
    std::vector<std::string_view> statements;
    statements.reserve(passes.size());
    for (const Pass& pass : passes) statements.push_back(pass.sql);
    auto found = TRY(database.OpenRecordsets(statements));
    auto rows = found.begin();
    for (const Pass& pass : passes) {
        const bool folders = pass.kind == PassKind::Folder;
        long long& count = folders ? counters.carpetasencontradas : counters.archivosencontrados;
        if (const engine::Result<> done = runPass(*rows++, pass, count, sink);
            !done && !(pass.silent && core::isRefusedStatement(done.error())))
            return done;
    }
    return {};
}

}  // namespace search
