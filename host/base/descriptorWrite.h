// Bytes to a descriptor, past the buffers of the standard library.
#pragma once

#include <QByteArray>

namespace vxH {

/// Writes all the bytes, in one go where the system lets it.
/// @return false when they cannot be written, or when a signal that ends the program (`_interrupts`) came before the
/// first of them was written; errno says why
bool writeAll(int descriptor, const QByteArray& bytes);

}  // namespace vxH
