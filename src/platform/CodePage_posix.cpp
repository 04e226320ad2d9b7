#include <langinfo.h>
#include <locale.h>
#include <mutex>

#include "platform/CodePage.h"
#include "platform/Environment.h"

namespace macroengine::platform {

int SystemCodePage() {
    // A locale object of our own leaves the process's locale, which is the host's, as it is.
    const std::unique_lock<std::mutex> lock = LockEnvironment();
    const locale_t locale = newlocale(LC_CTYPE_MASK, "", static_cast<locale_t>(nullptr));
    if (locale == static_cast<locale_t>(nullptr)) return 0;
    const int page = CodePageOfCharacterSet(nl_langinfo_l(CODESET, locale));
    freelocale(locale);
    return page;
}

}  // namespace macroengine::platform
