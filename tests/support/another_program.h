#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>
#include <string>

namespace test {

// Whether another program could begin a change of the catalogue now.
inline bool isFreeForOthers(const std::string& path) {
    const pid_t child = ::fork();
    if (child == 0) {
        sqlite3* other = nullptr;
        sqlite3_open(path.c_str(), &other);
        ::_exit(sqlite3_exec(other, "begin immediate", nullptr, nullptr, nullptr) == SQLITE_BUSY ? 1 : 0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return status == 0;
}

// While another program is in the midst of a change, so large that it is already written into the file before
// it is committed. Then it dies, and leaves the journal.
inline void inTheMidstOfAChange(
    const std::string& path, const std::function<void()>& act = [] {},
    const std::string& change = "update datos set archivo = 'new', ruta = hex(zeroblob(4000))") {
    const pid_t child = ::fork();
    if (child == 0) {
        sqlite3* other = nullptr;
        sqlite3_open(path.c_str(), &other);
        if (sqlite3_exec(other, ("pragma cache_size = 5; begin; " + change).c_str(), nullptr, nullptr,
                         nullptr) == SQLITE_OK)
            ::raise(SIGSTOP);
        ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, WUNTRACED);
    ASSERT_TRUE(WIFSTOPPED(status));
    act();
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    ASSERT_EQ(::access((path + "-journal").c_str(), F_OK), 0);
}

}  // namespace test
