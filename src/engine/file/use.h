#pragma once

namespace engine {

// What an opened file is used for.
enum class Use {
    Catalogue,  // durable: a finished Execute, or a committed transaction, survives a crash
    ReadOnly,   // never writes, not even a journal; works on read-only media
    Scratch,    // a working copy that may be lost: no journal, no flush
};

}  // namespace engine
