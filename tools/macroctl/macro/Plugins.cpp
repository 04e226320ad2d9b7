#include "macro/Plugins.h"

#include <utility>

namespace macroctl {

namespace {

const char kEntryName[] = "RegisterMacroPlugin";

std::string Complain(const std::string& path, const std::string& words) {
    return "plug-in " + path + words;
}

}  // namespace

bool Plugins::Load(const std::vector<std::string>& paths, std::string& reason) {
    for (const std::string& path : paths) {
        Plugin plugin;
        plugin.path = path;
        std::string systemWords;
        if (!plugin.library.Open(path, systemWords)) {
            reason = Complain(path, " can't be loaded: " + systemWords);
            return false;
        }
        plugin.entry = reinterpret_cast<Entry>(plugin.library.Find(kEntryName));
        if (plugin.entry == nullptr) {
            reason = Complain(path, std::string(" has no function ") + kEntryName);
            return false;
        }
        plugins_.push_back(std::move(plugin));
    }
    return true;
}

bool Plugins::RegisterWith(CMacroFileIF& file, std::string& reason) const {
    for (const Plugin& plugin : plugins_) {
        if (!plugin.entry(&file)) {
            reason = Complain(plugin.path, " refused to register its commands");
            return false;
        }
    }
    return true;
}

}  // namespace macroctl
