// The parameter section of one node as its reader gets it in a resolved load.
#pragma once

#include <QString>
#include <array>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>

#include "evaluate/evaluator.h"
#include "input/sectionKinds.h"
#include "resolve/nodeTypes.h"

namespace vxP {

/// Why a driver writes nothing, whatever its section says.
enum class _idle : quint8 { no, bypassed, loadsFromDisk, savedByHand };

/// The value of a parameter that its node leaves to others.
struct _given {
    std::string_view name{};
    QString value{};
};

/// Makes the sections of a scene's nodes.
class _sectionResolver {
 public:
    /// The evaluator has to outlive it.
    explicit _sectionResolver(vxV::_evaluator& withEvaluator) : evaluator(withEvaluator) {}

    /// @param type  of the node; null where it is not known
    _idle idleness(const vxN::_node& node, const _nodeType* type);

    /// Of a switch; none: the node has no such parameter, or it cannot be told.
    std::optional<bool> isOn(const vxN::_node& node, std::string_view parameter);

    /// Lines for the reader of that kind, from behind the header to the closing brace: the parameters that the reader
    /// knows, in the scene's order, each on one line with its values computed. What cannot be computed is told to the
    /// observer and stays as the scene holds it; a driver's frames that cannot be told are the stored ones where these
    /// are not 0, else the scene's. A driver's resolution is its camera's, unless it overrides it. An image without a
    /// name is that of the one render settings node in the driver's stage.
    /// @param given  replaces what the node says itself
    QString linesOf(const vxN::_node& node, const _sectionKind& kind, const _nodeType* type, const _given& given = {});

 private:
    /// Where a section is put together.
    struct _target;
    using _imageSize = std::array<double, 2>;  ///< width and height, pixels

    void addParameter(const _target& target, const vxN::_parameter& parameter, std::string_view name);
    void addFrames(const _target& target, const vxN::_parameter& parameter);
    void addLine(const _target& target, const vxN::_parameter& parameter, std::string_view name, const _given& given);
    void addResolution(const _target& target);
    bool isRead(const _sectionKind& kind, std::string_view name);
    std::string_view nameForReader(const _target& target, std::string_view name);
    vxN::_node cameraOf(const vxN::_node& driver);
    std::optional<_imageSize> sizeOf(const vxN::_node& node, std::string_view name);
    std::optional<_imageSize> overriddenSize(const vxN::_node& driver, std::string_view resolution,
                                             const std::optional<_imageSize>& camera);
    bool addStageImage(const _target& target, const vxN::_parameter& parameter, std::string_view name);
    void addRangeSwitch(const _target& target);
    bool isTemporary(const _target& target, const vxN::_parameter& parameter);
    void tellCurrentFrame(const vxN::_node& node);
    vxV::_textOutcome textOf(const vxN::_node& node, const vxN::_value& value);
    QString valueOf(const _target& target, const vxN::_parameter& parameter, const vxN::_value& value);
    QString cameraPath(const vxN::_node& node, const QString& path) const;
    void tellNumber(const vxN::_node& node, std::string_view name, const vxN::_value& value, const QString& result);
    std::optional<double> frame(const vxN::_node& node, const vxN::_value& value);

    vxV::_evaluator& evaluator;
    std::array<std::unordered_map<std::string, bool>, sectionReaderCount>
        readNames;  ///< whether the reader looks at it
};

}  // namespace vxP
