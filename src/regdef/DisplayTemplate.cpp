#include "regdef/DisplayTemplate.h"

namespace macroengine {

namespace {

void AppendLiteral(std::string& displayTemplate, std::string_view text) {
    for (std::size_t sign = text.find('%'); sign != std::string_view::npos; sign = text.find('%')) {
        displayTemplate.append(text.substr(0, sign)).append("%%");
        text.remove_prefix(sign + 1);
    }
    displayTemplate.append(text);
}

}  // namespace

void WriteDisplayTemplate(std::string_view line, std::size_t valueStart, std::size_t valueLength,
                          std::string_view directive, std::string& displayTemplate) {
    displayTemplate.clear();
    AppendLiteral(displayTemplate, line.substr(0, valueStart));
    if (valueLength != 0) displayTemplate.append(directive);
    AppendLiteral(displayTemplate, line.substr(valueStart + valueLength));
}

}  // namespace macroengine
