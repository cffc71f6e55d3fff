#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>

// The records that pass between the core, the host and the front end are bytes: packed,
// little-endian, copied whole. A record is an aggregate without constructors; `Record r{}` is all
// zero bytes. A stretch named reservedN (N its offset) belongs to the core and travels unchanged.
//
// Numbers in a packed record may lie at any address: read and write them by value, never through a
// pointer or a reference. Texts are GBK, normally with a NUL; read one that somebody else filled
// through text::FieldText, and fill one through text::CopyText.

#define PACKED_RECORD [[gnu::packed]]

#define ASSERT_RECORD(record, bytes)                                  \
    static_assert(sizeof(record) == (bytes) && alignof(record) == 1); \
    static_assert(std::is_trivial_v<record> && std::is_standard_layout_v<record>)

#define ASSERT_FIELD(record, field, offset) static_assert(offsetof(record, field) == (offset))
