/* zelm/kinds.hpp: the words that the C names of operations are made of */
#ifndef ZELM_KINDS_HPP
#define ZELM_KINDS_HPP

/* The choice of a function leaves no code behind it, at any level of optimisation. */
#define ZELM_FRONT inline __attribute__((always_inline))

namespace zelm {

/* What an operand is, in the letters of the C names: v vector, m matrix, t matrix used transposed,
 * c constant; a: an array of them. */
enum class kind { v, va, m, ma, t, ta, c, ca };

/* S standard, P pointer, L layout. */
enum class description { S, P, L };

namespace detail {

/* In the place of a C function that there is not. */
struct no_function {};

} // namespace detail
} // namespace zelm

#endif
