// The command password of a job: only its hash is kept.
#include <QCryptographicHash>
#include <algorithm>
#include <cstring>

#include "jobs/VX_DataTypes_jobs0_Basics.h"

namespace vxJ {

_passHash passHashOf(const _vxString8_allSize<40>& password) {
    const std::string_view text = password.view();
    const QByteArray digest =
        QCryptographicHash::hash(QByteArray(text.data(), static_cast<int>(text.size())), QCryptographicHash::Sha256);
    _passHash hash;
    std::copy(digest.begin(), digest.end(), hash.bytes);
    return hash;
}

void _JobBasics_noSettings_noPaths::setCommandPassword(const _vxString8_allSize<40>& password) {
    const _passHash hash = passHashOf(password);
    std::memcpy(commandPasswordHash, hash.bytes, sizeof commandPasswordHash);
}

bool _JobBasics_noSettings_noPaths::isRightCommandPW(const _passHash& hash) const {
    return std::memcmp(commandPasswordHash, hash.bytes, sizeof commandPasswordHash) == 0;
}

}  // namespace vxJ
