#pragma once

#include <new>

#include "engine/error.h"

namespace engine {

inline Error outOfMemory() {
    return {error::outOfMemory, "out of memory"};  // short enough to need none
}

// The result of a work, or that memory ran out in it: no exception leaves the engine.
template <class Work>
auto guarded(Work work) -> decltype(work()) {
    try {
        return work();
    } catch (const std::bad_alloc&) {
        return std::unexpected(outOfMemory());
    }
}

}  // namespace engine
