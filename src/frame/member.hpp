// The exported members: api/members.txt says what their arguments are, and each family ends in a
// table of what they call.
//
//   ZELM_MEMBERS(LUDecomp, (ma), lu_decomp(src, pDstIndex, dst, widthHeight, count))
//
// defines every zelmLUDecomp_ma_..., of all element types and descriptions. The call names the
// arguments as members.txt does: src and dst are operands in the description of the member, T is
// its element type. Several kinds may call the same, (mm, tm), and members that differ from the
// others of their kind are named one by one, (vaca_32f_P).
#pragma once

#include "operand.hpp"

#include "entries.inc"

// clang-format off

// The entry y8_<name>, hidden, and the exported name as its alias. The entry is declared with the
// type that the public header gives the name. Operands are temporaries: variables would be stored
// before the shortest ways into small products and sums, which do without.
#define ZELM_MEMBER(name, type, parameters, operands, values, ...)                                \
    extern "C" [[gnu::visibility("hidden")]] decltype(name) y8_##name;                            \
    extern "C" ZelStatus y8_##name parameters {                                                   \
        using namespace zelm;                                                                     \
        using T [[maybe_unused]] = type;                                                          \
        return [&] operands __attribute__((always_inline)) { return __VA_ARGS__; }                \
        values;                                                                                   \
    }                                                                                             \
    extern "C" [[gnu::alias("y8_" #name), gnu::visibility("default")]] decltype(name) name;

// One kind after the other, twelve at most: every scan leaves the name of the next step before its
// arguments.
#define ZELM_MEMBERS(operation, kinds, ...)                                                       \
    ZELM_SCAN(ZELM_SCAN(ZELM_SCAN(ZELM_KINDS(operation, (__VA_ARGS__), ZELM_LIST kinds))))
#define ZELM_KINDS(...) ZELM_KIND(__VA_ARGS__)
#define ZELM_KIND(operation, call, kind, ...)                                                     \
    ZELM_MEMBERS_##operation##_##kind call                                                        \
    __VA_OPT__(ZELM_NEXT ZELM_NOTHING() () (operation, call, __VA_ARGS__))
#define ZELM_NEXT() ZELM_KIND
#define ZELM_NOTHING()
#define ZELM_LIST(...) __VA_ARGS__
#define ZELM_SCAN(...) ZELM_SCAN_(ZELM_SCAN_(ZELM_SCAN_(__VA_ARGS__)))
#define ZELM_SCAN_(...) __VA_ARGS__
// clang-format on
