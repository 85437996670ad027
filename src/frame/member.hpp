// The vocabulary of argument lists: an operand's kind and description make its parameters and, from
// them, the operand. A family's list of members names kinds; nothing else spells an argument list.
//
//   ZELM_PARAMETERS(L, ma, const float, src1)  the parameters of src1
//   ZELM_OPERAND(L, ma, const float, src1)     the operand they make
//
// Descriptions are S, P and L. In L, single operands are standard.
#pragma once

#include "operand.hpp"

// clang-format off
#define ZELM_PARAMETERS(D, kind, T, x) ZELM_PARAMETERS_(D, kind, T, x)
#define ZELM_PARAMETERS_(D, kind, T, x) ZELM_PARAMETERS_##D##_##kind(T, x)
#define ZELM_OPERAND(D, kind, T, x) ZELM_OPERAND_(D, kind, T, x)
#define ZELM_OPERAND_(D, kind, T, x) ZELM_OPERAND_##D##_##kind(T, x)

// standard
#define ZELM_PARAMETERS_S_v(T, x)  T *x, int x##Stride2
#define ZELM_PARAMETERS_S_va(T, x) T *x, int x##Stride0, int x##Stride2
#define ZELM_PARAMETERS_S_m(T, x)  T *x, int x##Stride1, int x##Stride2
#define ZELM_PARAMETERS_S_ma(T, x) T *x, int x##Stride0, int x##Stride1, int x##Stride2
#define ZELM_PARAMETERS_S_t  ZELM_PARAMETERS_S_m
#define ZELM_PARAMETERS_S_ta ZELM_PARAMETERS_S_ma
#define ZELM_PARAMETERS_S_c(T, x)  T x
#define ZELM_PARAMETERS_S_ca(T, x) T *x, int x##Stride0

#define ZELM_OPERAND_S_v(T, x)  (zelm::Standard<T, 1, false>{x, 0, 0, x##Stride2})
#define ZELM_OPERAND_S_va(T, x) (zelm::Standard<T, 1, true>{x, x##Stride0, 0, x##Stride2})
#define ZELM_OPERAND_S_m(T, x)  (zelm::Standard<T, 2, false>{x, 0, x##Stride1, x##Stride2})
#define ZELM_OPERAND_S_ma(T, x) (zelm::Standard<T, 2, true>{x, x##Stride0, x##Stride1, x##Stride2})
#define ZELM_OPERAND_S_t(T, x)  ZELM_OPERAND_S_m(T, x).transposed()
#define ZELM_OPERAND_S_ta(T, x) ZELM_OPERAND_S_ma(T, x).transposed()
#define ZELM_OPERAND_S_c(T, x)  (zelm::Constant<std::remove_const_t<T>>{x})
#define ZELM_OPERAND_S_ca(T, x) (zelm::Standard<T, 0, true>{x, x##Stride0, 0, 0})

// pointer
#define ZELM_PARAMETERS_P_v(T, x)  T *const *x, int x##Shift
#define ZELM_PARAMETERS_P_va(T, x) T *const *x, int x##Shift, int x##Stride0
#define ZELM_PARAMETERS_P_m  ZELM_PARAMETERS_P_v
#define ZELM_PARAMETERS_P_ma ZELM_PARAMETERS_P_va
#define ZELM_PARAMETERS_P_t  ZELM_PARAMETERS_P_v
#define ZELM_PARAMETERS_P_ta ZELM_PARAMETERS_P_va
#define ZELM_PARAMETERS_P_c  ZELM_PARAMETERS_S_c
#define ZELM_PARAMETERS_P_ca ZELM_PARAMETERS_S_ca

#define ZELM_OPERAND_P_v(T, x)  (zelm::Tabled<T, 1, false>{x, x##Shift, 0})
#define ZELM_OPERAND_P_va(T, x) (zelm::Tabled<T, 1, true>{x, x##Shift, x##Stride0})
#define ZELM_OPERAND_P_m(T, x)  (zelm::Tabled<T, 2, false>{x, x##Shift, 0})
#define ZELM_OPERAND_P_ma(T, x) (zelm::Tabled<T, 2, true>{x, x##Shift, x##Stride0})
#define ZELM_OPERAND_P_t(T, x)  ZELM_OPERAND_P_m(T, x).transposed()
#define ZELM_OPERAND_P_ta(T, x) ZELM_OPERAND_P_ma(T, x).transposed()
#define ZELM_OPERAND_P_c  ZELM_OPERAND_S_c
#define ZELM_OPERAND_P_ca ZELM_OPERAND_S_ca

// layout
#define ZELM_PARAMETERS_L_v  ZELM_PARAMETERS_S_v
#define ZELM_PARAMETERS_L_va(T, x) T *const *x, int x##Shift, int x##Stride2
#define ZELM_PARAMETERS_L_m  ZELM_PARAMETERS_S_m
#define ZELM_PARAMETERS_L_ma(T, x) T *const *x, int x##Shift, int x##Stride1, int x##Stride2
#define ZELM_PARAMETERS_L_t  ZELM_PARAMETERS_S_t
#define ZELM_PARAMETERS_L_ta ZELM_PARAMETERS_L_ma
#define ZELM_PARAMETERS_L_c  ZELM_PARAMETERS_S_c
#define ZELM_PARAMETERS_L_ca(T, x) T *const *x, int x##Shift

#define ZELM_OPERAND_L_v  ZELM_OPERAND_S_v
#define ZELM_OPERAND_L_va(T, x) (zelm::Layout<T, 1>{x, x##Shift, 0, x##Stride2})
#define ZELM_OPERAND_L_m  ZELM_OPERAND_S_m
#define ZELM_OPERAND_L_ma(T, x) (zelm::Layout<T, 2>{x, x##Shift, x##Stride1, x##Stride2})
#define ZELM_OPERAND_L_t  ZELM_OPERAND_S_t
#define ZELM_OPERAND_L_ta(T, x) ZELM_OPERAND_L_ma(T, x).transposed()
#define ZELM_OPERAND_L_c  ZELM_OPERAND_S_c
#define ZELM_OPERAND_L_ca(T, x) (zelm::Layout<T, 0>{x, x##Shift, 0, 0})

// One exported member: the entry y8_<name>, hidden, and the exported name as its alias. The entry is
// declared with the type that the public header gives the name, so a wrong list does not compile.
#define ZELM_MEMBER(name, parameters, ...)                                                        \
    extern "C" [[gnu::visibility("hidden")]] decltype(name) y8_##name;                            \
    extern "C" ZelStatus y8_##name parameters { return __VA_ARGS__; }                             \
    extern "C" [[gnu::alias("y8_" #name), gnu::visibility("default")]] decltype(name) name;

// M(description, element type, suffix, ...) for each description and type that single-object and
// array kinds have.
#define ZELM_SINGLE(M, ...)                                                                       \
    M(S, float, 32f, __VA_ARGS__)                                                                 \
    M(S, double, 64f, __VA_ARGS__)                                                                \
    M(P, float, 32f_P, __VA_ARGS__)                                                               \
    M(P, double, 64f_P, __VA_ARGS__)
#define ZELM_ARRAY(M, ...)                                                                        \
    ZELM_SINGLE(M, __VA_ARGS__)                                                                   \
    M(L, float, 32f_L, __VA_ARGS__)                                                               \
    M(L, double, 64f_L, __VA_ARGS__)
// clang-format on
