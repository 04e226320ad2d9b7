#pragma once

#include <string>

#include "macroengine/CRegDefFileIF.h"
#include "regdef/RegisterContents.h"

namespace macroengine {

/// The reader of the sectioned format, and what both readers have in common.
class CRegDefFile : public CRegDefFileIF {
public:
    CRegDefFile();
    CRegDefFile(const CRegDefFile&) = delete;
    CRegDefFile& operator=(const CRegDefFile&) = delete;
    ~CRegDefFile() override;

    bool Load(const char* path) override;
    std::uint32_t GetErrorCount() const override;
    const char* GetErrorMessage(std::uint32_t index) const override;
    std::uint32_t GetRegisterCount() const override;
    CRegFieldsIF* GetRegister(std::uint32_t index) override;
    std::uint32_t GetPreambleCount() const override;
    const char* GetPreamble(std::int32_t index) const override;
    const char* GetListing() override;

protected:
    RegisterContents contents_;

private:
    std::string listing_;
};

}  // namespace macroengine
