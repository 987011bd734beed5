// The parameter section of one node: how its lines are walked and how a value is taken out of a line.
//
//   out/mantra1.parm<NUL>{                                    header, read by the scan
//   vm_picture<TAB>[ 0<TAB>locks=0 ]<TAB>(<TAB>"$HIP/a.$F4.exr"<TAB>)
//   f<TAB>[ 0<TAB>locks=0 ]<TAB>(<TAB>[ f1<TAB>1 ] <TAB>[ f2<TAB>240 ] <TAB>1<TAB>)
//   }
#pragma once

#include <QLatin1String>
#include <QString>
#include <QTextStream>
#include <array>
#include <span>
#include <string_view>

#include "jobs/VX_DataTypes_plugin.h"
#include "scan/scanObserver.h"

namespace vxP {

using vxS::_size;

/// Ends the path in a section's header.
constexpr std::string_view sectionSuffix{".parm"};

// Roots of node paths, in the orders in which headers are searched for them.
constexpr QLatin1String outRoot{"out/"};
constexpr QLatin1String objRoot{"obj/"};
constexpr QLatin1String imgRoot{"img/"};
constexpr QLatin1String stageRoot{"stage/"};
inline constexpr std::array objectRoots{outRoot, objRoot};
inline constexpr std::array outputRoots{outRoot, stageRoot, imgRoot, objRoot};

/// What the type of a node tells about it. A plain load knows no types.
struct _nodeTraits {
    bool exportsOnly = false;   ///< a driver: writes a scene description that no job renders
    bool rendersStage = false;  ///< a driver: is the node of the stage that it renders
    bool isStereo = false;      ///< a camera
};

/// The node whose section is read.
struct _sectionNode {
    QString path;                         ///< "/out/mantra1"
    const _nodeTraits* traits = nullptr;  ///< null: the section itself and the path have to tell
};

/// How far a section has been read.
enum class _sectionStep {
    parameter,  ///< `line` holds a parameter
    closed,     ///< the closing brace was read
    cutOff,     ///< the scene ended inside the section
};

/// Reads on to the next parameter or the end of the section. Lines are trimmed; empty ones and comments are left out.
/// A value may run over several lines; a line that begins with "}" inside it closes the section all the same.
_sectionStep nextParameter(QTextStream& stream, QString& line);

/// What a parameter means for the rest of its section.
enum class _step {
    next,       ///< the line is done
    unmatched,  ///< not this rule's line after all: later rules are tried
    leave,      ///< the section is not wanted; what remains of it is not read
};

/// Reads a section to its end.
/// @param onParameter  `_step(const QString& line)`, called for each parameter
/// @param onClosed     `qint32()`, called at the closing brace; never for a section that is left or cut off
/// @return what `onClosed` returned, else resultSuccess
template <typename OnParameter, typename OnClosed>
qint32 readSection(QTextStream& stream, QString& line, OnParameter onParameter, OnClosed onClosed) {
    for (;;) {
        switch (nextParameter(stream, line)) {
            case _sectionStep::parameter:
                tellParameter(line);
                if (onParameter(line) != _step::leave) break;
                tell(_remark::left, line);
                return resultSuccess;
            case _sectionStep::closed:
                return onClosed();
            case _sectionStep::cutOff:
                tellOfSection(_remark::notClosed);
                return resultSuccess;
        }
    }
}

/// True when the line begins with `name`, in any letter case. A name that ends with TAB is a whole name.
bool isNamed(const QString& line, QLatin1String name);
/// The parameter's own name: the text before the first TAB.
QString parameterName(const QString& line);

/// What becomes of a header in which no ".parm" follows its root.
enum class _unendedPath { isEmpty, isWhole };

/// Node path of a section: "/" and the header from the first of `roots` that occurs in it up to ".parm".
QString nodePathOf(const QString& header, std::span<const QLatin1String> roots, _unendedPath unended);

/// Text between the first "(" and the first ")" after it, trimmed. Without "(" it begins with the line, without ")" it
/// ends with it.
QString parenthesised(const QString& line);
/// The same up to the line's last ")": file names may hold parentheses themselves.
QString outerParenthesised(const QString& line);
/// `parenthesised` without any double quote, trimmed.
QString unquoted(const QString& line);
/// A value without the double quote at its beginning and the one at its end, each by itself.
QString withoutOuterQuotes(QString value);

/// Text before the first separator; the whole text when there is none.
QString textBefore(const QString& text, QChar separator);
/// Text after the first separator; the whole text when there is none.
QString textBehind(const QString& text, QChar separator);
/// First of the fields, which TABs separate.
QString firstField(const QString& value);
/// All fields after the first one, trimmed; the whole value when there is only one.
QString nextFields(const QString& value);
/// Base-10 number; white space around it is accepted, anything else (also a number beyond 32 bits) gives 0.
qint32 integerOf(const QString& text);

/// `[ name<TAB>value ]`, a value driven by a channel: without "[ name" and any "]", trimmed. Any other value as it is.
QString withoutChannelReference(const QString& value, const QString& name);
/// True when the value refers to another parameter, which is not evaluated here.
bool hasExpression(const QString& value);
/// A node path inside an escaped node expression, which begins with a back-quote, "chsop(" and a backslash: without its
/// first nine characters and its last one. Any other text as it is.
QString withoutNodeExpression(const QString& value);

}  // namespace vxP
