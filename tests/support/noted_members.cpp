// All members as functions that do nothing but note their names. Their parameters are not declared:
// this file must not see zelm.h.

#include <string_view>

namespace {
std::string_view noted;
}
std::string_view noted_member();
std::string_view noted_member() { return noted; }

#define ZELM_MEMBER(name, ...)                                                                     \
    extern "C" int name();                                                                         \
    int name() {                                                                                   \
        noted = #name;                                                                             \
        return 0;                                                                                  \
    }
#define ZELM_FIXED_MEMBER ZELM_MEMBER
#include "members.inc"
