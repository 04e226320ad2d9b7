#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include <macroengine/CMacroPropertyIF.h>

#include "api/MacroHost.h"

namespace macroengine {
namespace {

using test::MacroHost;
using test::ProbeCommand;

/// Asks the interface for something. @return false when the answer was a refusal; else `answer` holds it.
using Question = std::function<bool(CMacroPropertyIF* property, std::string& answer)>;

std::string ToText(double value) {
    std::string text = std::to_string(value);
    text.erase(text.find_last_not_of('0') + 1);
    return text.back() == '.' ? text + "0" : text;
}

/// Writes a call in line 7 of a macro and lets its command ask.
///
/// @param call  as in "probe.call(1, a) = b". In it `b` is the boolean true, and `a` the array
///              [7, 1.5, "s", true, [1]].
/// @return the answer; the message without its place when the answer was a refusal and that failed the call.
std::string Ask(const std::string& call, const Question& question) {
    MacroHost host;
    std::string answer;
    ProbeCommand probe([&](CMacroPropertyIF* property) { return question(property, answer); });
    ProbeCommand truth([](CMacroPropertyIF* property) { return property->SetResultBoolean(true); }, "probe",
                       "truth");
    host->RegisterCategory(nullptr, &probe, false);
    host->RegisterCategory(nullptr, &truth, false);
    const std::string errors = host.Output(
        "b = probe.truth()\n"
        "a[0] = 7\n"
        "a[1] = 1.5\n"
        "a[2] = \"s\"\n"
        "a[3] = b\n"
        "a[4][0] = 1\n" +
        call + "\n");
    if (errors.empty()) return answer;
    if (errors == "a.mac(7): error : run time error !") return "failed silently";
    const std::string before = "a.mac(7): error : ";
    const std::string after = "\na.mac(7): error : run time error !";
    const bool isWhole = errors.size() > before.size() + after.size() &&
                         errors.compare(0, before.size(), before) == 0 &&
                         errors.compare(errors.size() - after.size(), after.size(), after) == 0;
    return isWhole ? errors.substr(before.size(), errors.size() - before.size() - after.size())
                   : "not the lines of one message: " + errors;
}

struct AskCase {
    const char* call;
    std::string expected;
};

void Expect(const Question& question, const std::vector<AskCase>& cases) {
    for (const AskCase& c : cases)
        EXPECT_EQ(Ask(c.call, question), c.expected) << c.call;
}

std::string Argument(int index, const std::string& problem) {
    return "probe.call() argument error. (argument[" + std::to_string(index) + "]" + problem;
}

std::string Assigned(const std::string& problem) {
    return "probe.call() assigned value error. (" + problem + ")";
}

TEST(PropertyArguments, CheckArgumentCount) {
    const std::string refused = "probe.call() argument error. (argument count is invalid)";
    const auto count = [](unsigned int min, unsigned int max) {
        return [min, max](CMacroPropertyIF* property, std::string& answer) {
            const int result = property->CheckArgumentCount(min, max);
            answer = std::to_string(result);
            return result != -1;
        };
    };
    Expect(count(1, 1), {{"probe.call", refused},
                         {"probe.call()", refused},
                         {"probe.call(1)", "1"},
                         {"probe.call(1, 2)", refused},
                         {"probe.call(1) = 2", "1"}});
    Expect(count(0, 0), {{"probe.call()", "0"}, {"probe.call", "0"}, {"probe.call(1)", refused}});
    Expect(count(1, 0xFFFFFFFF), {{"probe.call()", refused}, {"probe.call(1, 2, 3, a, b)", "5"}});
    Expect(count(2, 1), {{"probe.call(1)", refused}, {"probe.call(1, 2)", refused}});
}

TEST(PropertyArguments, GetArgInteger) {
    const auto integer = [](unsigned int index, unsigned int min, unsigned int max) {
        return [=](CMacroPropertyIF* property, std::string& answer) {
            int value = 4711;
            const bool read = property->GetArgInteger(index, min, max, value);
            if (!read) {
                EXPECT_EQ(value, 4711);
            }
            answer = std::to_string(value);
            return read;
        };
    };
    const std::string type = Argument(0, " type isn't interger)");
    Expect(integer(0, 0, 0), {{"probe.call(5)", "5"},
                              {"probe.call(-1)", "-1"},
                              {"probe.call(0x80000000)", "-2147483648"},
                              {"probe.call(a[0])", "7"},
                              {"probe.call(2.5)", type},
                              {"probe.call(\"5\")", type},
                              {"probe.call(b)", type},
                              {"probe.call(a)", type},
                              {"probe.call()", type}});
    Expect(integer(2, 0, 0), {{"probe.call(1, 2, 3)", "3"},
                              {"probe.call(1, 2, \"3\")", Argument(2, " type isn't interger)")},
                              {"probe.call(1, 2)", Argument(2, " type isn't interger)")}});
    const std::string range = Argument(0, " is out of range.)");
    Expect(integer(0, 0, 255), {{"probe.call(0)", "0"},
                                {"probe.call(255)", "255"},
                                {"probe.call(256)", range},
                                {"probe.call(-1)", range},
                                {"probe.call(1.0)", type}});
    Expect(integer(0, 1, 0xFFFFFFFF), {{"probe.call(-1)", "-1"}, {"probe.call(0)", range}});
    Expect(integer(0, static_cast<unsigned int>(-10), 10),
           {{"probe.call(1000)", "1000"}, {"probe.call(-5)", "-5"}});
}

TEST(PropertyArguments, GetArgString) {
    const Question text = [](CMacroPropertyIF* property, std::string& answer) {
        const char* const value = property->GetArgString(0);
        if (value != nullptr) answer = "<" + std::string(value) + ">";
        return value != nullptr;
    };
    const std::string type = Argument(0, " type isn't string)");
    Expect(text, {{"probe.call(\"text\")", "<text>"},
                  {"probe.call(\"\")", "<>"},
                  {"probe.call(a[2])", "<s>"},
                  {"probe.call(5)", type},
                  {"probe.call(2.5)", type},
                  {"probe.call(b)", type},
                  {"probe.call(a)", type},
                  {"probe.call()", type}});
}

TEST(PropertyArguments, GetArgFloating) {
    const auto floating = [](double min, double max) {
        return [=](CMacroPropertyIF* property, std::string& answer) {
            double value = 4711.0;
            const bool read = property->GetArgFloating(1, min, max, value);
            if (!read) {
                EXPECT_EQ(value, 4711.0);
            }
            answer = ToText(value);
            return read;
        };
    };
    // The wording is that of an integer.
    const std::string type = Argument(1, " type isn't interger)");
    Expect(floating(0.0, 0.0), {{"probe.call(0, 2.5)", "2.5"},
                                {"probe.call(0, -5)", "-5.0"},
                                {"probe.call(0, 0x80000000)", "-2147483648.0"},
                                {"probe.call(0, a[1])", "1.5"},
                                {"probe.call(0, \"2.5\")", type},
                                {"probe.call(0, b)", type},
                                {"probe.call(0, a)", type},
                                {"probe.call(0)", type}});
    const std::string range = Argument(1, " is out of range.)");
    Expect(floating(-1.5, 2.5), {{"probe.call(0, -1.5)", "-1.5"},
                                 {"probe.call(0, 2.5)", "2.5"},
                                 {"probe.call(0, 2)", "2.0"},
                                 {"probe.call(0, 2.50001)", range},
                                 {"probe.call(0, 3)", range},
                                 {"probe.call(0, -2)", range}});
    Expect(floating(2.5, -1.5), {{"probe.call(0, 100.0)", "100.0"}});
}

TEST(PropertyArguments, GetArgType) {
    const auto type = [](unsigned int index) {
        return [=](CMacroPropertyIF* property, std::string& answer) {
            answer = std::to_string(property->GetArgType(index));
            return true;
        };
    };
    Expect(type(0), {{"probe.call(5)", "0"},
                     {"probe.call(2.5)", "1"},
                     {"probe.call(\"t\")", "2"},
                     {"probe.call(b)", "3"},
                     {"probe.call(a)", "6"},
                     {"probe.call(a[0])", "0"},
                     {"probe.call(a[4])", "6"},
                     {"probe.call()", "8"}});
    Expect(type(1), {{"probe.call(5)", "8"}, {"probe.call()", "8"}, {"probe.call(5, 2.5)", "1"}});
    Expect(type(0xFFFFFFFF), {{"probe.call(5)", "8"}});
}

TEST(PropertyArguments, GetArgArraySize) {
    const Question size = [](CMacroPropertyIF* property, std::string& answer) {
        const int value = property->GetArgArraySize(0);
        answer = std::to_string(value);
        return value != -1;
    };
    const std::string noArray = Argument(0, " is not array)");
    Expect(size, {{"probe.call(a)", "5"},
                  {"probe.call(a[4])", "1"},
                  {"probe.call(5)", noArray},
                  {"probe.call(2.5)", noArray},
                  {"probe.call(\"t\")", noArray},
                  {"probe.call(b)", noArray},
                  {"probe.call()", "system error: parameter position is invalid."}});
}

TEST(PropertyArguments, GetArgArrayInteger) {
    const auto integer = [](unsigned int element) {
        return [=](CMacroPropertyIF* property, std::string& answer) {
            int value = 4711;
            const bool read = property->GetArgArrayInteger(0, element, value);
            if (!read) {
                EXPECT_EQ(value, 4711);
            }
            answer = std::to_string(value);
            return read;
        };
    };
    const std::string noArray = Argument(0, " is not array)");
    Expect(integer(0), {{"probe.call(a)", "7"},
                        {"probe.call(a[4])", "1"},
                        {"probe.call(5)", noArray},
                        {"probe.call(2.5)", noArray},
                        {"probe.call(\"t\")", noArray},
                        {"probe.call(b)", noArray},
                        {"probe.call()", "system error: parameter position is invalid."}});
    const std::string kind = Argument(0, " is array, but elements is not integer)");
    for (const unsigned int element : {1U, 2U, 3U, 4U})
        Expect(integer(element), {{"probe.call(a)", kind}});
    const std::string missing = Argument(0, " is array, but elements is not exist)");
    for (const unsigned int element : {5U, 6U, 0xFFFFFFFFU})
        Expect(integer(element),
               {{"probe.call(a)", missing}, {"probe.call(a[4])", missing}, {"probe.call(5)", noArray}});
}

TEST(PropertyArguments, GetArgArrayFloating) {
    const auto floating = [](unsigned int element) {
        return [=](CMacroPropertyIF* property, std::string& answer) {
            double value = 4711.0;
            const bool read = property->GetArgArrayFloating(1, element, value);
            if (!read) {
                EXPECT_EQ(value, 4711.0);
            }
            answer = ToText(value);
            return read;
        };
    };
    const std::string noArray = Argument(1, " is not array)");
    Expect(floating(0), {{"probe.call(0, a)", "7.0"},
                         {"probe.call(0, 5)", noArray},
                         {"probe.call(0, 2.5)", noArray},
                         {"probe.call(0, \"t\")", noArray},
                         {"probe.call(0, b)", noArray},
                         {"probe.call(0)", "system error: parameter position is invalid."}});
    Expect(floating(1), {{"probe.call(0, a)", "1.5"}});
    const std::string kind = Argument(1, " is array, but elements is not floating)");
    for (const unsigned int element : {2U, 3U, 4U})
        Expect(floating(element), {{"probe.call(0, a)", kind}});
    Expect(floating(5), {{"probe.call(0, a)", Argument(1, " is array, but elements is not exist)")}});
}

TEST(PropertyArguments, GetArgArrayString) {
    const auto text = [](unsigned int element) {
        return [=](CMacroPropertyIF* property, std::string& answer) {
            const char* const value = property->GetArgArrayString(0, element);
            if (value != nullptr) answer = "<" + std::string(value) + ">";
            return value != nullptr;
        };
    };
    const std::string noArray = Argument(0, " is not array)");
    Expect(text(2), {{"probe.call(a)", "<s>"},
                     {"probe.call(5)", noArray},
                     {"probe.call(2.5)", noArray},
                     {"probe.call(\"t\")", noArray},
                     {"probe.call(b)", noArray},
                     {"probe.call()", "system error: parameter position is invalid."}});
    const std::string kind = Argument(0, " is array, but elements is not string)");
    for (const unsigned int element : {0U, 1U, 3U, 4U})
        Expect(text(element), {{"probe.call(a)", kind}});
    Expect(text(5), {{"probe.call(a)", Argument(0, " is array, but elements is not exist)")}});
}

TEST(PropertyAssigned, CheckNoAssignedValue) {
    const auto check = [](bool silent) {
        return [=](CMacroPropertyIF* property, std::string& answer) {
            answer = "no assigned value";
            return property->CheckNoAssignedValue(silent);
        };
    };
    Expect(check(false), {{"probe.call()", "no assigned value"},
                          {"x = probe.call()", "invalied destination value in assign statement."},
                          {"probe.call() = 1", "assigned value isn't needed at probe.call()"},
                          {"probe.call() = a", "assigned value isn't needed at probe.call()"}});
    Expect(check(true), {{"probe.call()", "no assigned value"}, {"probe.call() = 1", "failed silently"}});
}

TEST(PropertyAssigned, GetAssignedInteger) {
    const auto integer = [](unsigned int min, unsigned int max) {
        return [=](CMacroPropertyIF* property, std::string& answer) {
            int value = 4711;
            const bool read = property->GetAssignedInteger(min, max, value);
            if (!read) {
                EXPECT_EQ(value, 4711);
            }
            answer = std::to_string(value);
            return read;
        };
    };
    const std::string type = Assigned("type isn't interger");
    Expect(integer(0, 0), {{"probe.call() = 5", "5"},
                           {"probe.call(1, 2) = -1", "-1"},
                           {"probe.call() = a[0] * 2 + 1", "15"},
                           {"probe.call() = 2.5", type},
                           {"probe.call() = \"5\"", type},
                           {"probe.call() = b", type},
                           {"probe.call() = a", type},
                           {"probe.call()", "assigned value is needed at probe.call()"},
                           {"probe.call(5)", "assigned value is needed at probe.call()"}});
    const std::string range = Assigned("out of range.");
    Expect(integer(1, 255), {{"probe.call() = 1", "1"},
                             {"probe.call() = 255", "255"},
                             {"probe.call() = 0", range},
                             {"probe.call() = 256", range},
                             {"probe.call() = -1", range}});
    Expect(integer(255, 1), {{"probe.call() = -1", "-1"}});
}

TEST(PropertyAssigned, GetAssignedFloating) {
    const auto floating = [](double min, double max) {
        return [=](CMacroPropertyIF* property, std::string& answer) {
            double value = 4711.0;
            const bool read = property->GetAssignedFloating(min, max, value);
            if (!read) {
                EXPECT_EQ(value, 4711.0);
            }
            answer = ToText(value);
            return read;
        };
    };
    const std::string type = Assigned("type isn't floating");
    Expect(floating(0.0, 0.0), {{"probe.call() = 2.5", "2.5"},
                                {"probe.call() = -5", "-5.0"},
                                {"probe.call() = a[1] * 2", "3.0"},
                                {"probe.call() = \"2.5\"", type},
                                {"probe.call() = b", type},
                                {"probe.call() = a", type},
                                {"probe.call()", "assigned value is needed at probe.call()"}});
    const std::string range = Assigned("out of range.");
    Expect(floating(-1.5, 2.5), {{"probe.call() = -1.5", "-1.5"},
                                 {"probe.call() = 2.5", "2.5"},
                                 {"probe.call() = 3", range},
                                 {"probe.call() = -1.6", range}});
    Expect(floating(1.0, 1.0), {{"probe.call() = 100", "100.0"}});
}

TEST(PropertyAssigned, GetAssignedArraySize) {
    const Question size = [](CMacroPropertyIF* property, std::string& answer) {
        const int value = property->GetAssignedArraySize();
        answer = std::to_string(value);
        return value != -1;
    };
    const std::string noArray = Assigned("assigned variable is not array");
    Expect(size, {{"probe.call() = a", "5"},
                  {"probe.call() = a[4]", "1"},
                  {"probe.call() = 5", noArray},
                  {"probe.call() = 2.5", noArray},
                  {"probe.call() = \"t\"", noArray},
                  {"probe.call() = b", noArray},
                  {"probe.call(a)", noArray}});
}

TEST(PropertyAssigned, GetAssignedArrayInteger) {
    const auto integer = [](unsigned int element) {
        return [=](CMacroPropertyIF* property, std::string& answer) {
            int value = 4711;
            const bool read = property->GetAssignedArrayInteger(element, value);
            if (!read) {
                EXPECT_EQ(value, 4711);
            }
            answer = std::to_string(value);
            return read;
        };
    };
    const std::string noArray = Assigned("assigned value is not array");
    Expect(integer(0), {{"probe.call() = a", "7"},
                        {"probe.call() = a[4]", "1"},
                        {"probe.call() = 5", noArray},
                        {"probe.call() = 2.5", noArray},
                        {"probe.call() = \"t\"", noArray},
                        {"probe.call() = b", noArray},
                        {"probe.call(a)", noArray}});
    for (const unsigned int element : {1U, 2U, 3U, 4U})
        Expect(integer(element),
               {{"probe.call() = a", Assigned("assigned value is array, but elements is not integer")}});
    for (const unsigned int element : {5U, 0xFFFFFFFFU})
        Expect(integer(element),
               {{"probe.call() = a", Assigned("assigned value is array, but elements is not exist")}});
}

TEST(PropertyAssigned, GetAssignedArrayFloating) {
    const auto floating = [](unsigned int element) {
        return [=](CMacroPropertyIF* property, std::string& answer) {
            double value = 4711.0;
            const bool read = property->GetAssignedArrayFloating(element, value);
            if (!read) {
                EXPECT_EQ(value, 4711.0);
            }
            answer = ToText(value);
            return read;
        };
    };
    Expect(floating(1), {{"probe.call() = a", "1.5"},
                         {"probe.call() = 1.5", Assigned("assigned value is not array")},
                         {"probe.call()", Assigned("assigned value is not array")}});
    // Unlike an element of an argument, an integer is not converted.
    for (const unsigned int element : {0U, 2U, 3U, 4U}) {
        Expect(floating(element),
               {{"probe.call() = a", Assigned("assigned value is array, but elements is not floating")}});
    }
    Expect(floating(5),
           {{"probe.call() = a", Assigned("assigned value is array, but elements is not exist")}});
}

TEST(PropertyAssigned, GetAssignedArrayString) {
    const auto text = [](unsigned int element) {
        return [=](CMacroPropertyIF* property, std::string& answer) {
            const char* const value = property->GetAssignedArrayString(element);
            if (value != nullptr) answer = "<" + std::string(value) + ">";
            return value != nullptr;
        };
    };
    Expect(text(2), {{"probe.call() = a", "<s>"},
                     {"probe.call() = \"s\"", Assigned("assigned value is not array")},
                     {"probe.call()", Assigned("assigned value is not array")}});
    for (const unsigned int element : {0U, 1U, 3U, 4U})
        Expect(text(element),
               {{"probe.call() = a", Assigned("assigned value is array, but elements is not string")}});
    Expect(text(5), {{"probe.call() = a", Assigned("assigned value is array, but elements is not exist")}});
}

}  // namespace
}  // namespace macroengine
