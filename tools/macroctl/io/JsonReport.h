#pragma once

#include <nlohmann/json.hpp>

#include "ExitStatus.h"
#include "io/Report.h"

namespace macroctl {

/// Gathers error lines for one JSON object on standard output:
///
/// @code
/// {
///   "result": "failed",
///   "errors": [
///     {"file": "broken.mac", "line": 2, "text": "run time error !"}
///   ],
///   "output": "..."
/// }
/// @endcode
class JsonReport : public Report {
public:
    void Add(const std::vector<std::string>& lines) override;
    void AddSource(std::string_view, std::string_view) override {}

    /// @param output  what the macro printed.
    void SetOutput(std::string_view output);

    /// Writes the object.
    ///
    /// @param status  what the subcommand came to. When it is kExitUsage there is no object.
    /// @return the exit status, which is kExitFailed when standard output doesn't take the object.
    ExitStatus Finish(ExitStatus status) const;

private:
    using Json = nlohmann::ordered_json;

    Json errors_ = Json::array();
    Json output_;
};

}  // namespace macroctl
