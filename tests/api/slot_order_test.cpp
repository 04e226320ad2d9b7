// The order of the virtual functions is the interface of compiled hosts and plug-ins. Each object here notes which of
// its functions a call by the number of the slot has reached.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <macroengine/CMacroCategoryBase.h>
#include <macroengine/CMacroFileIF.h>
#include <macroengine/CRegDefFileIF.h>
#include <macroengine/CRegFieldsIF.h>

#include "api/SlotCaller.h"

namespace {

using testing::ElementsAre;

class NotingCommand : public CMacroCategoryBase {
public:
    explicit NotingCommand(CallLog& log)
        : CMacroCategoryBase("category", "command", true, true, ""), log_(log) {}
    bool Run(CMacroPropertyIF* property) override { return log_.Enter("Run", property == nullptr), true; }

private:
    CallLog& log_;
};

class NotingFile : public CMacroFileIF {
public:
    explicit NotingFile(CallLog& log) : log_(log) {}
    bool Load(const char* path) override { return log_.Enter("Load", path), true; }
    bool Run() override { return log_.Enter("Run"), false; }
    std::uint32_t GetErrorCount() const override { return log_.Enter("GetErrorCount"), 3; }
    const char* GetErrorMessage(std::uint32_t index) const override {
        return log_.Enter("GetErrorMessage", index), "message";
    }
    void ClearErrors() override { log_.Enter("ClearErrors"); }
    void Reserved() override { log_.Enter("Reserved"); }
    bool RegisterCategory(CMacroCategoryBase* companion, CMacroCategoryBase* command,
                          bool bareCall) override {
        return log_.Enter("RegisterCategory", companion == nullptr, command->GetPropertyName(), bareCall),
               true;
    }
    bool RequestPluginRegistration() override { return log_.Enter("RequestPluginRegistration"), false; }
    CMacroCategoryBase* FindCommand(const char* category, const char* command) override {
        return log_.Enter("FindCommand", category, command), nullptr;
    }
    bool Abort() override { return log_.Enter("Abort"), true; }
    bool SetWorkDirectory(const char* directory) override {
        return log_.Enter("SetWorkDirectory", directory), true;
    }
    bool SetLineNotification(std::uint32_t code, HWND target, std::uint32_t enableCount) override {
        return log_.Enter("SetLineNotification", code, target == nullptr, enableCount), true;
    }
    bool SetErrorHandling(bool stopOnError, HWND target, std::uint32_t code) override {
        return log_.Enter("SetErrorHandling", stopOnError, target == nullptr, code), true;
    }

private:
    CallLog& log_;
};

class NotingRegisterFile : public CRegDefFileIF {
public:
    explicit NotingRegisterFile(CallLog& log) : log_(log) {}
    bool Load(const char* path) override { return log_.Enter("Load", path), true; }
    std::uint32_t GetErrorCount() const override { return log_.Enter("GetErrorCount"), 2; }
    const char* GetErrorMessage(std::uint32_t index) const override {
        return log_.Enter("GetErrorMessage", index), "message";
    }
    std::uint32_t GetRegisterCount() const override { return log_.Enter("GetRegisterCount"), 4; }
    CRegFieldsIF* GetRegister(std::uint32_t index) override {
        return log_.Enter("GetRegister", index), nullptr;
    }
    std::uint32_t GetPreambleCount() const override { return log_.Enter("GetPreambleCount"), 6; }
    const char* GetPreamble(std::int32_t index) const override {
        return log_.Enter("GetPreamble", index), "token";
    }
    const char* GetListing() override { return log_.Enter("GetListing"), "listing"; }

private:
    CallLog& log_;
};

class NotingRegister : public CRegFieldsIF {
public:
    explicit NotingRegister(CallLog& log) : log_(log) {}
    std::int32_t GetRecordValue() const override { return log_.Enter("GetRecordValue"), -1; }
    const char* GetName() const override { return log_.Enter("GetName"), "name"; }
    std::uint32_t GetRecordValue2() const override { return log_.Enter("GetRecordValue2"), 3; }
    std::uint32_t GetAddress2Wire() const override { return log_.Enter("GetAddress2Wire"), 4; }
    std::uint32_t GetAddress3Wire() const override { return log_.Enter("GetAddress3Wire"), 5; }
    std::uint32_t GetAddress(std::int32_t mode) const override { return log_.Enter("GetAddress", mode), 6; }
    std::uint8_t GetLsb() const override { return log_.Enter("GetLsb"), 7; }
    std::uint8_t GetLength() const override { return log_.Enter("GetLength"), 8; }
    std::int32_t GetRw() const override { return log_.Enter("GetRw"), -9; }
    const char* GetDescription() const override { return log_.Enter("GetDescription"), "description"; }
    const char* GetFunction() const override { return log_.Enter("GetFunction"), "function"; }
    bool GetBigEndian(std::int32_t mode) const override { return log_.Enter("GetBigEndian", mode), true; }
    bool GetFlag1() const override { return log_.Enter("GetFlag1"), false; }
    bool GetFlag2() const override { return log_.Enter("GetFlag2"), true; }

private:
    CallLog& log_;
};

TEST(SlotOrder, OfACommand) {
    CallLog log;
    NotingCommand command(log);
    SlotCaller call(static_cast<CMacroCategoryBase*>(&command), log);

    call.Next<bool>(static_cast<CMacroPropertyIF*>(nullptr));

    EXPECT_THAT(log.lines(), ElementsAre("Run(true) = true"));
}

TEST(SlotOrder, OfAMacroFile) {
    CallLog log;
    NotingFile file(log);
    NotingCommand command(log);
    SlotCaller call(static_cast<CMacroFileIF*>(&file), log);
    CMacroCategoryBase* const noCommand = nullptr;
    const HWND noWindow = nullptr;

    call.Next<bool>("a.mac");
    call.Next<bool>();
    call.Next<std::uint32_t>();
    call.Next<const char*>(std::uint32_t{4});
    call.Next<void>();
    call.Next<void>();
    call.Next<bool>(noCommand, static_cast<CMacroCategoryBase*>(&command), true);
    call.Next<bool>();
    call.Next<CMacroCategoryBase*>("category", "command");
    call.Next<bool>();
    call.Next<bool>("folder");
    call.Next<bool>(std::uint32_t{12}, noWindow, std::uint32_t{13});
    call.Next<bool>(true, noWindow, std::uint32_t{14});

    EXPECT_THAT(
        log.lines(),
        ElementsAre("Load(a.mac) = true", "Run() = false", "GetErrorCount() = 3",
                    "GetErrorMessage(4) = message", "ClearErrors()", "Reserved()",
                    "RegisterCategory(true, command, true) = true", "RequestPluginRegistration() = false",
                    "FindCommand(category, command) = 0", "Abort() = true", "SetWorkDirectory(folder) = true",
                    "SetLineNotification(12, true, 13) = true", "SetErrorHandling(true, true, 14) = true"));
}

TEST(SlotOrder, OfARegisterFile) {
    CallLog log;
    NotingRegisterFile file(log);
    SlotCaller call(static_cast<CRegDefFileIF*>(&file), log);

    call.Next<bool>("a.rgi");
    call.Next<std::uint32_t>();
    call.Next<const char*>(std::uint32_t{3});
    call.Next<std::uint32_t>();
    call.Next<CRegFieldsIF*>(std::uint32_t{5});
    call.Next<std::uint32_t>();
    call.Next<const char*>(std::int32_t{-7});
    call.Next<const char*>();

    EXPECT_THAT(log.lines(),
                ElementsAre("Load(a.rgi) = true", "GetErrorCount() = 2", "GetErrorMessage(3) = message",
                            "GetRegisterCount() = 4", "GetRegister(5) = 0", "GetPreambleCount() = 6",
                            "GetPreamble(-7) = token", "GetListing() = listing"));
}

TEST(SlotOrder, OfARegister) {
    CallLog log;
    NotingRegister fields(log);
    SlotCaller call(static_cast<CRegFieldsIF*>(&fields), log);

    call.Next<std::int32_t>();
    call.Next<const char*>();
    call.Next<std::uint32_t>();
    call.Next<std::uint32_t>();
    call.Next<std::uint32_t>();
    call.Next<std::uint32_t>(std::int32_t{-6});
    call.Next<std::uint8_t>();
    call.Next<std::uint8_t>();
    call.Next<std::int32_t>();
    call.Next<const char*>();
    call.Next<const char*>();
    call.Next<bool>(std::int32_t{12});
    call.Next<bool>();
    call.Next<bool>();

    EXPECT_THAT(log.lines(),
                ElementsAre("GetRecordValue() = -1", "GetName() = name", "GetRecordValue2() = 3",
                            "GetAddress2Wire() = 4", "GetAddress3Wire() = 5", "GetAddress(-6) = 6",
                            "GetLsb() = 7", "GetLength() = 8", "GetRw() = -9",
                            "GetDescription() = description", "GetFunction() = function",
                            "GetBigEndian(12) = true", "GetFlag1() = false", "GetFlag2() = true"));
}

// The engine's own objects keep the order of their interface.
TEST(SlotOrder, OfTheEnginesMacroFile) {
    CallLog log;
    CMacroFileIF* file = CreateMacroFile("", false);
    SlotCaller call(file, log);

    log.Enter("Load");
    call.Next<bool>("");
    log.Enter("Run");
    call.Next<bool>();
    log.Enter("GetErrorCount");
    call.Next<std::uint32_t>();

    const std::string count = std::to_string(file->GetErrorCount());
    EXPECT_THAT(log.lines(), ElementsAre("Load() = false", "Run() = false", "GetErrorCount() = " + count));
    EXPECT_NE(count, "0");
    DeleteMacroFile(file);
}

}  // namespace
