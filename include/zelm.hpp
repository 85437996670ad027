/*
 * zelm.hpp: libzelm for C++17
 */
#ifndef ZELM_HPP
#define ZELM_HPP

#include "zelm.h"
#include "zelm/views.hpp"

#endif
