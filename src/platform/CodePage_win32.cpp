#include "platform/CodePage.h"
#include "platform/WindowsHeaders_win32.h"

namespace macroengine::platform {

int SystemCodePage() {
    switch (GetACP()) {
        case 932:
            return 932;
        case 936:
            return 936;
        case 949:
            return 949;
        case 950:
            return 950;
        default:
            return 0;
    }
}

}  // namespace macroengine::platform
