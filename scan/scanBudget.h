// What one load may use up. A scene may be written by anyone; whatever it holds, a load ends in a time that its size
// explains and in little memory.
#pragma once

#include <QString>
#include <exception>

namespace vxP {

/// Work is counted in steps of about a nanosecond, the same on every machine: a result never depends on its speed.
constexpr qint64 workOfAnyScene = 700'000'000;
constexpr qint64 workPerSceneByte = 7;

/// Bytes that one load may keep in variables, takes and catalogues.
constexpr qint64 memoryOfAnyScene = qint64{45} * 1024 * 1024;

/// The load used up its budget: it ends, and what it has made so far stays.
class _budgetExceeded : public std::exception {
 public:
    const char* what() const noexcept override { return "the scene asks for more work or memory than it may"; }
};

/// A load begins: the whole budget is there again.
void beginBudget() noexcept;
/// Bytes of the scene were read, which adds to the work that may be done.
void allowWorkFor(qint64 bytes) noexcept;
/// @param steps  0 or more
/// Throws `_budgetExceeded`.
void spendWork(qint64 steps);
/// @param bytes  kept from now on; negative when they were released
/// Throws `_budgetExceeded`.
void keepMemory(qint64 bytes);
/// Bytes that a text takes, with what Qt and the allocator add and what it has room for.
qint64 bytesOf(const QString& text);

}  // namespace vxP
