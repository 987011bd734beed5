#include "scan/scanBudget.h"

namespace vxP {

namespace {

qint64 workLeft = workOfAnyScene;
qint64 memoryLeft = memoryOfAnyScene;

void take(qint64 amount, qint64& left) {
    left -= amount;
    if (left < 0) throw _budgetExceeded();
}

}  // namespace

void beginBudget() noexcept {
    workLeft = workOfAnyScene;
    memoryLeft = memoryOfAnyScene;
}

void allowWorkFor(qint64 bytes) noexcept {
    workLeft += bytes * workPerSceneByte;
}

void spendWork(const _workCost& cost, qint64 size) {
    take(cost.once + cost.perUnit * size, workLeft);
}

void keepMemory(qint64 bytes) {
    take(bytes, memoryLeft);
}

qint64 bytesOf(const QString& text) {
    return bytesAroundText + static_cast<qint64>(sizeof(QChar)) * text.capacity();
}

}  // namespace vxP
