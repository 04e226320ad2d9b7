// A library that loads but lacks the entry point of a plug-in.

#include <macroengine/Export.h>

extern "C" MACROENGINE_PLUGIN_EXPORT bool RegisterNothing();

extern "C" MACROENGINE_PLUGIN_EXPORT bool RegisterNothing() {
    return true;
}
