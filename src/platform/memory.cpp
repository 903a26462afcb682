#include "platform/memory.h"

#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <exception>
#include <new>

#include "platform/temporary_file.h"

namespace platform {
namespace {

constexpr int unusable = 3;
const char* theProgram = "";
std::terminate_handler otherwise;

[[noreturn]] void endWithoutMemory() {
    for (const char* text : {theProgram, ": not enough memory\n"})
        if (::write(STDERR_FILENO, text, std::strlen(text)) < 0) break;
    removeTemporaries();
    ::_exit(unusable);
}

void terminated() {
    try {
        if (const auto failure = std::current_exception()) std::rethrow_exception(failure);
    } catch (const std::bad_alloc&) {
        endWithoutMemory();
    } catch (...) {  // a fault, which is not to be hidden
    }
    otherwise();
}

}  // namespace

void needMemory(const char* program, std::size_t bytes) {
    theProgram = program;
    void* volatile probe = std::malloc(bytes);
    if (!probe) endWithoutMemory();
    std::free(probe);
    otherwise = std::set_terminate(terminated);
}

}  // namespace platform
