#include "io/JsonReport.h"

#include "io/ErrorLine.h"
#include "io/Output.h"
#include "text/Utf8.h"

namespace macroctl {

namespace {

const char* ResultText(ExitStatus status) {
    if (status == kExitDone) return "done";
    return status == kExitAborted ? "aborted" : "failed";
}

}  // namespace

void JsonReport::Add(const std::vector<std::string>& lines) {
    for (const std::string& line : lines) {
        const ErrorLine error = ParseErrorLine(line);
        errors_.push_back({{"file", error.file.empty() ? Json(nullptr) : Json(ValidUtf8(error.file))},
                           {"line", error.line == 0 ? Json(nullptr) : Json(error.line)},
                           {"text", ValidUtf8(error.text)}});
    }
}

void JsonReport::SetOutput(std::string_view output) {
    output_ = ValidUtf8(output);
}

ExitStatus JsonReport::Finish(ExitStatus status) const {
    if (status == kExitUsage) return status;
    Output out;
    out.Write(std::string("{\n  \"result\": \"") + ResultText(status) + "\",\n  \"errors\": [");
    const char* separator = "\n    ";
    for (const Json& error : errors_) {
        out.Write(separator + error.dump());
        separator = ",\n    ";
    }
    out.Write(errors_.empty() ? "]" : "\n  ]");
    if (!output_.is_null()) out.Write(",\n  \"output\": " + output_.dump());
    out.Write("\n}\n");
    return out.Finish() ? status : kExitFailed;
}

}  // namespace macroctl
