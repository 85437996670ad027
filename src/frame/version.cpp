#include "zelcore.h"
#include "zelm.h"

namespace {

constexpr char version_text[] = "7.1.1 (r37466)";
constexpr char build_date[] = "Sep 24 2012";

constexpr ZelLibraryVersion record(const char *name) {
    return {7, 1, 1, 37466, {'y', '8', 0, 0}, name, version_text, build_date};
}
constexpr ZelLibraryVersion with_sse42 = record("zelm SSE4.1/4.2 (y8)+");
constexpr ZelLibraryVersion without_sse42 = record("zelm SSE4.1/4.2 (y8)");

constexpr int sse42 = 128; // feature code

} // namespace

extern "C" [[gnu::visibility("hidden")]] decltype(zelmGetLibVersion) y8_zelmGetLibVersion;
extern "C" const ZelLibraryVersion *y8_zelmGetLibVersion(void) {
    return ownGetFeature(sse42) != 0 ? &with_sse42 : &without_sse42;
}
extern "C" [[gnu::alias("y8_zelmGetLibVersion"),
             gnu::visibility("default")]] decltype(zelmGetLibVersion) zelmGetLibVersion;
