#include "shared/vxEnvironment.h"

#include <unistd.h>

#include <algorithm>
#include <cstring>

namespace vxS {

_varValList vxGetEnvironmentVariableList(const bool& sorted) {
    _varValList list;
    for (char** entry = environ; entry != nullptr && *entry != nullptr; ++entry) {
        const char* const equals = std::strchr(*entry, '=');
        if (equals == nullptr) continue;
        const QByteArray name(*entry, static_cast<int>(equals - *entry));
        list.append({QString::fromUtf8(name), QString::fromUtf8(equals + 1)});
    }
    if (sorted)
        std::stable_sort(list.begin(), list.end(),
                         [](const _varValue& a, const _varValue& b) { return a.name < b.name; });
    return list;
}

}  // namespace vxS
