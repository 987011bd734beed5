#include "explain/warnings.h"

#include <QJsonObject>

namespace vxE {

void _warnings::add(QStringView code, const QString& node, const QList<int>& jobs, const QString& text) {
    const _key key{code.toString(), node, text};
    const auto [place, isNew] = places.emplace(key, keys.size());
    if (isNew) {
        keys.push_back(key);
        jobsOf.emplace_back();
    }
    jobsOf[place->second].insert(jobs.begin(), jobs.end());
}

QJsonArray _warnings::toJson() const {
    QJsonArray list;
    for (std::size_t i = 0; i < keys.size(); ++i) {
        QJsonArray numbers;
        for (const int number : jobsOf[i]) numbers.append(number);
        const auto& [code, node, text] = keys[i];
        list.append(QJsonObject{{QStringLiteral("code"), code},
                                {QStringLiteral("node"), node},
                                {QStringLiteral("jobs"), numbers},
                                {QStringLiteral("text"), text}});
    }
    return list;
}

}  // namespace vxE
