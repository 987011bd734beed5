// Words for a shell's command line.
#pragma once

#include <QString>

namespace vxH {

/// The text as one word that can be pasted into bash or zsh, and into any shell where it has no control characters:
/// `/a/b.hip`, `'/a b/it'\''s.hip'`, `$'/a\x1b.hip'`.
QString shellQuoted(const QString& text);

}  // namespace vxH
