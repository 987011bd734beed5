// The report page of explained scenes that a test makes up: a JSON list on the standard input, the page on the output.
#include <QFile>
#include <QJsonDocument>

#include "host/report/reportData.h"
#include "host/report/reportPage.h"

int main() {
    QFile input;
    QFile output;
    if (!input.open(stdin, QIODevice::ReadOnly) || !output.open(stdout, QIODevice::WriteOnly)) return 1;
    const auto scenes = QJsonDocument::fromJson(input.readAll()).array();
    output.write(vxH::reportPage(vxH::reportData(scenes, QStringLiteral("vxscene test"))));
    return 0;
}
