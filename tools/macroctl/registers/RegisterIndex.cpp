#include "registers/RegisterIndex.h"

#include "text/Similar.h"

namespace macroctl {

RegisterIndex::RegisterIndex(const std::vector<Register>& registers) : registers_(registers) {
    byName_.reserve(registers.size());
    for (const Register& reg : registers)
        byName_.emplace(reg.name, &reg);
}

const Register* RegisterIndex::Find(std::string_view name) const {
    const auto found = byName_.find(name);
    return found != byName_.end() ? found->second : nullptr;
}

std::string_view RegisterIndex::FindSimilar(std::string_view name) const {
    Similar similar(name);
    for (const Register& reg : registers_)
        similar.Offer(reg.name);
    return similar.Best();
}

}  // namespace macroctl
