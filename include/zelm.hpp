/*
 * zelm.hpp: libzelm for C++17
 */
#ifndef ZELM_HPP
#define ZELM_HPP

#include "zelm/geometry.hpp"
#include "zelm/operations.hpp"
#include "zelm/raw.hpp"
#include "zelm/solvers.hpp"

#endif
