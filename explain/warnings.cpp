#include "explain/warnings.h"

#include <QJsonObject>

namespace vxE {

void _warnings::add(QStringView code, const QString& node, const QList<int>& jobs, const QString& text) {
    const _key key{code.toString(), node, text};
    const auto [place, isNew] = places.emplace(key, keys.size());
    if (isNew) {
        keys.append(key);
        jobsOf.append(QList<int>());
    }
    jobsOf[place->second].append(jobs);
}

QJsonArray _warnings::toJson() const {
    QJsonArray list;
    for (vxS::_size i = 0; i < keys.size(); ++i) {
        QJsonArray numbers;
        for (const int number : jobsOf.at(i)) numbers.append(number);
        const auto& [code, node, text] = keys.at(i);
        list.append(QJsonObject{{QStringLiteral("code"), code},
                                {QStringLiteral("node"), node},
                                {QStringLiteral("jobs"), numbers},
                                {QStringLiteral("text"), text}});
    }
    return list;
}

}  // namespace vxE
