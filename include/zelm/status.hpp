/* zelm/status.hpp: what became of a call */
#ifndef ZELM_STATUS_HPP
#define ZELM_STATUS_HPP

#include "../zelcore.h"
#include "../zelmsafe.h"

#include <exception>

namespace zelm {

class status;

/* What status::or_throw throws. */
class error : public std::exception {
public:
    explicit error(int code) noexcept : code_(code) {}
    int code() const noexcept { return code_; }
    const char *what() const noexcept override { return zelStatusText(code_); }

private:
    int code_;
};

/* The result of every operation: a code of ZelStatus or of zelmsafe.h, 0 if all went well.
 *
 *   if (const zelm::status result = zelm::add(a, b, c); !result)
 *       std::puts(result.text());
 *   zelm::add(a, b, c).or_throw();
 */
class [[nodiscard]] status {
public:
    constexpr status(int code = zelStatusOk) noexcept : code_(code) {}
    constexpr int code() const noexcept { return code_; }
    constexpr bool ok() const noexcept { return code_ == zelStatusOk; }
    constexpr explicit operator bool() const noexcept { return ok(); }
    const char *text() const noexcept { return zelStatusText(code_); }
#if defined(__cpp_exceptions)
    void or_throw() const {
        if (!ok())
            throw error(code_);
    }
#endif
    friend constexpr bool operator==(status a, status b) noexcept { return a.code_ == b.code_; }
    friend constexpr bool operator!=(status a, status b) noexcept { return a.code_ != b.code_; }

private:
    int code_;
};

/* The number of threads that a call may use, for the whole process; 0 withdraws an earlier setting.
 * zelStatusBadSize: n is below 0. zelcore.h tells what holds without a setting. */
inline status set_threads(int n) { return zelSetNumThreads(n); }
inline int threads() { return ownGetNumThreads(); }

/* The version of the library. */
inline const ZelLibraryVersion &version() { return *zelmGetLibVersion(); }

} // namespace zelm

#endif
