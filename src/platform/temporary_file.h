#pragma once

#include <string>

#include "platform/files.h"

namespace platform {

// A file being written beside the one it is to replace. Whatever happens, the target's name leads to the old
// file or to the complete new one: what was not put in place is deleted. What a killed program left is taken
// away by the next one that makes such a file in that folder; a lock tells whose file still has its writer.
class TemporaryFile {
  public:
    // An empty file that only its owner may read.
    [[nodiscard]] static FileResult<TemporaryFile> beside(const std::string& target);
    TemporaryFile(TemporaryFile&& other) noexcept;
    TemporaryFile& operator=(TemporaryFile&&) = delete;
    ~TemporaryFile();

    [[nodiscard]] const std::string& path() const { return m_path; }
    [[nodiscard]] const std::string& target() const { return m_target; }
    [[nodiscard]] int descriptor() const { return m_descriptor; }

    // Brings the file to the disk, which may take long.
    [[nodiscard]] FileResult<> flush() const;

    // Brings the file to the disk, gives it the target's name and brings the name there too. What the name
    // led to until now is replaced; of a link the link itself.
    [[nodiscard]] FileResult<> putInPlace();

  private:
    TemporaryFile(std::string pattern, std::string target);
    [[nodiscard]] bool create();

    std::string m_path;     // empty when nothing is to be deleted
    std::string m_journal;  // here, since deleting must need no memory
    std::string m_target;
    int m_descriptor = -1;
    int m_registered = -1;
};

// A name that goes away with the program, also when one of the signals below ends it.
class RegisteredName {
  public:
    explicit RegisteredName(const std::string& path);
    ~RegisteredName();
    RegisteredName(const RegisteredName&) = delete;
    RegisteredName& operator=(const RegisteredName&) = delete;

  private:
    int m_registered;
};

// The descriptor of an empty file without a name, gone as soon as it is closed, in the folder that the
// environment names for such files. It is not handed on to other programs.
[[nodiscard]] FileResult<int> namelessFile();

// From now on an interrupt, a hang-up or a request to terminate deletes the temporary files of this process
// before it ends it. For the programs' main().
void removeTemporariesOnSignals();

// The same at once; may be called by a signal handler.
void removeTemporaries();

// True when no process holds the file that `descriptor` was opened on; from then on this one does.
[[nodiscard]] bool claimed(int descriptor);

}  // namespace platform
