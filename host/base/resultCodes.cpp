// The table of result codes and their sentences.
#include "host/base/resultCodes.h"

#include <QLatin1String>

#include "jobs/VX_DataTypes_plugin.h"

namespace vxH {
namespace {

struct _codeSentence {
    qint32 code;
    QLatin1String sentence;
};

constexpr _codeSentence codeSentences[] = {
    {vxP::resultSuccess, QLatin1String{"loaded"}},
    {vxP::resultCannotOpen, QLatin1String{"cannot be opened for reading"}},
    {vxP::resultVersionMismatch, QLatin1String{"the plug-in does not support this version of the records"}},
    {vxP::resultException, QLatin1String{"an exception, a read error or the limit of a load ended it"}},
    {vxP::resultNoMoreJobs, QLatin1String{"a further job could not be added"}},
    {vxP::resultNoUsableOutput, QLatin1String{"no jobs, as no output driver has a usable output name"}},
    {hostPathUnusable, QLatin1String{"the path cannot be handed to the plug-in"}},
    {hostCrashed, QLatin1String{"crashed"}},
    {hostNoResult, QLatin1String{"ended without a result"}},
    {hostNoPlugin, QLatin1String{"the plug-in cannot be loaded"}},
    {hostNotInScene, QLatin1String{"does not hold what was asked for"}},
    {hostTimedOut, QLatin1String{"took longer than the time limit"}},
    {hostNoScene, QLatin1String{"is no Houdini scene"}},
};

}  // namespace

QString sentenceOfCode(qint32 code) {
    for (const auto& row : codeSentences) {
        if (row.code == code) return row.sentence;
    }
    return QStringLiteral("the plug-in stopped with a code of its own");
}

}  // namespace vxH
