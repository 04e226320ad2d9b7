#pragma once

#include <string>
#include <vector>

#include "registers/Register.h"

class CRegDefFileIF;

namespace macroctl {

/// How a register file is read.
struct ReadingOptions {
    bool lineBased = false;  ///< Read it as a line-based file, whatever it looks like.
    bool merge = false;      ///< Join the registers that a line-based file gives in parts.
};

/// A register file with all that could be read of it.
class RegisterFile {
public:
    /// Reads the file, with the reader that its content asks for unless the options say otherwise.
    RegisterFile(const std::string& path, const ReadingOptions& options);
    ~RegisterFile();
    RegisterFile(RegisterFile&& other) noexcept;
    RegisterFile& operator=(RegisterFile&&) = delete;
    RegisterFile(const RegisterFile&) = delete;
    RegisterFile& operator=(const RegisterFile&) = delete;

    const std::string& Path() const { return path_; }
    const std::vector<Register>& Registers() const { return registers_; }

    /// @return whether the registers have initial values: the line-based format gives them.
    bool IsLineBased() const { return lineBased_; }

    /// @return whether the whole file was read without an error.
    bool IsGood() const { return good_; }

    /// @return the engine's lines about what went wrong; none without an error.
    std::vector<std::string> Errors() const;

    /// @return the engine's own listing.
    const char* Listing();

    /// @return whether any register has an address on the bus.
    bool Uses(BusKind bus) const;

private:
    void Gather();

    std::string path_;
    bool lineBased_ = false;
    bool good_ = false;
    CRegDefFileIF* reader_ = nullptr;
    std::vector<Register> registers_;
};

}  // namespace macroctl
