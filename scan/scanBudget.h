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

/// What a piece of work takes: steps for the piece, and steps for each unit of its size.
struct _workCost {
    qint64 once;
    qint64 perUnit = 0;
};

// What uses up work, and the unit of its size.
constexpr _workCost sceneLineCost{500, 4};       ///< a line that the scan looks at; characters
constexpr _workCost invalidByteCost{15};         ///< a byte of a line that is no UTF-8
constexpr _workCost sectionCost{1000, 8};        ///< a section, apart from its lines; characters of its header
constexpr _workCost parameterLineCost{500, 5};   ///< a line that a reader looks at; characters
constexpr _workCost comparisonCost{20, 2};       ///< a place where a text may be; characters of the text
constexpr _workCost outputNameCost{1500, 5};     ///< an output name, taken out of its line and rewritten; characters
constexpr _workCost prefixedNameCost{0, 1};      ///< a name that another is put in front of; characters
constexpr _workCost passNameCost{500, 4};        ///< a pass file's name, put together; characters
constexpr _workCost nameTranslationCost{3000};   ///< a name whose variables are replaced, these aside
constexpr _workCost splitNameCost{3000, 20};     ///< a name parted into folder, file and extension; characters
constexpr _workCost replacementCost{100, 1};     ///< a text looked for in a name; eights of the name's characters ...
constexpr _workCost occurrenceCost{40};          ///< ... each place where it is replaced ...
constexpr _workCost replacedNameCost{0, 1};      ///< ... the name that results; characters
constexpr _workCost sceneVariableCost{2000, 1};  ///< a variable replaced in all its forms; characters of its value
constexpr _workCost rootOfValueCost{0, 5};       ///< its value without scene extensions; characters
constexpr _workCost variableIndexCost{0, 60};    ///< the variables' index brought up to date; variables
constexpr _workCost variableMarkCost{100, 4};  ///< a "$", looked up among the variables; characters that may be a name
constexpr _workCost variableLookupCost{50, 30};  ///< a name, looked for in the index; how often that is halved
constexpr _workCost nameComparisonCost{100, 1};  ///< a variable's name, compared with a text; characters
constexpr _workCost foldingCost{50, 5};          ///< a path, looked for in any letter case; characters
constexpr _workCost cameraSearchCost{0, 10};     ///< a camera looked for one by one; cameras
constexpr _workCost wedgeRangeCost{1500, 80};    ///< the range of a wedge's channel; characters of its numbers
constexpr _workCost wedgeChannelCost{1500};      ///< a channel in the name of a wedge's variant
constexpr _workCost wedgeNameCost{200, 8};       ///< a name searched for wedge placeholders; characters
constexpr _workCost archiveSearchCost{0, 1};     ///< bytes searched for an archive's next header; bytes
constexpr _workCost archiveMagicCost{300};       ///< a place that looks like a header of the archive
constexpr _workCost archiveEntryCost{500};       ///< an entry of the archive, its body left unread
constexpr _workCost archiveBodyCost{0, 4};       ///< a body with what its reader makes of it; bytes
constexpr _workCost childNameCost{200};          ///< a name in the order of a node's children
constexpr _workCost nodeInputCost{0, 1};         ///< inputs of a node; inputs
constexpr _workCost takeRecordCost{300};         ///< a record of the scene's takes
constexpr _workCost dialogScriptCost{0, 5};      ///< the script that tells the menus of a type; bytes
constexpr _workCost evaluationStepCost{100};     ///< a step of computing an expression
constexpr _workCost parameterNameCost{30, 1};    ///< a parameter of a node, its name looked up; characters
constexpr _workCost shownLayerCost{5000};        ///< a driver looked at as a take or a variant has it
constexpr _workCost wireCost{200};               ///< a wire, or a node on the ways that lead to a driver
constexpr _workCost customDataCost{2000, 8};     ///< a value put into a job's custom data; characters of old and new

// Bytes that containers and the allocator add to what they hold.
constexpr qint64 bytesAroundText = 32;
constexpr qint64 bytesAroundList = 32;
constexpr qint64 bytesAroundHash = 64;      ///< a hash and a position
constexpr qint64 bytesAroundPosition = 96;  ///< a text, shared with its list, and a position

/// The load used up its budget: it ends, and what it has made so far stays.
class _budgetExceeded : public std::exception {
 public:
    const char* what() const noexcept override { return "the scene asks for more work or memory than it may"; }
};

/// A load begins: the whole budget is there again.
void beginBudget() noexcept;
/// Bytes of the scene were read, which adds to the work that may be done.
void allowWorkFor(qint64 bytes) noexcept;
/// @param size  0 or more, in the unit of the cost
/// Throws `_budgetExceeded`.
void spendWork(const _workCost& cost, qint64 size = 0);
/// @param bytes  kept from now on; negative when they were released
/// Throws `_budgetExceeded`.
void keepMemory(qint64 bytes);
/// Bytes that a text takes, with what Qt and the allocator add and what it has room for.
qint64 bytesOf(const QString& text);

}  // namespace vxP
