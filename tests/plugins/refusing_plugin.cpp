// A plug-in that doesn't want this host.

#include <macroengine/Plugin.h>

extern "C" MACROENGINE_PLUGIN_EXPORT bool RegisterMacroPlugin(CMacroFileIF*) {
    return false;
}
