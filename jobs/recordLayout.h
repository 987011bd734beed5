// The layout of every record that crosses the host interface, as a table that can be printed and compared.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace vxJ {

/// A field of a record: its place, counted from the start of that record, and its size, both in bytes.
struct _fieldLayout {
    std::string_view name;
    std::size_t offset;
    std::size_t statedOffset;  ///< the offset that the interface promises; always equal to `offset`
    std::size_t size;
};

/// Makes the record that a host starts from, alone or as a part of the whole job that it belongs to.
struct _freshRecord {
    void (*construct)(void* memory);  ///< turns memory of any content into the whole
    std::size_t wholeSize;
    std::size_t offset;  ///< of the record in the whole
};

/// A record and its own fields in their order; fields of its base record and reserved gaps are left out.
struct _recordLayout {
    std::string_view name;
    std::size_t size;
    std::size_t alignment;
    std::span<const _fieldLayout> fields;
    _freshRecord fresh;
};

/// All records: the forms of a job with their parts, the job array, and the records of the plug-in's entry points.
std::span<const _recordLayout> recordLayouts();

}  // namespace vxJ
