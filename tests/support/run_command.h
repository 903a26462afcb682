#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "cli/arguments.h"
#include "cli/command.h"
#include "cli/output.h"

namespace test {

struct Outcome {
    int status;
    std::string output;
    std::string errors;
};

// Runs a command of zarquelin-cli in this process; it complains when it can do nothing, and is silent when
// all is done.
inline Outcome runCommand(const std::vector<std::string>& words) {
    std::vector<const char*> pointers;
    for (const std::string& word : words) pointers.push_back(word.c_str());
    const auto arguments = cli::parse(pointers);
    if (!arguments) return {cli::WrongUsage, {}, {}};
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    const int status = arguments->command->run({*arguments, core::Language::English});
    EXPECT_TRUE(cli::finishOutput());
    const std::string output = testing::internal::GetCapturedStdout();
    const std::string errors = testing::internal::GetCapturedStderr();
    EXPECT_TRUE(errors.empty() ? status <= cli::NothingFound : status != cli::Done) << errors;
    return {status, output, errors};
}

}  // namespace test
