// The stack that calls need, on the caller's thread and on workers.

#include "support/problem.hpp"

#include <algorithm>
#include <cstring>
#include <functional>
#include <gtest/gtest.h>
#include <pthread.h>
#include <sys/mman.h>
#include <zelcore.h>

using namespace zelm_test;

namespace {

constexpr std::size_t promised = 44 << 10; // bytes of the library's own

// A thread on a painted stack.
class PaintedStack {
public:
    PaintedStack() : empty_(used([] {})) {}
    ~PaintedStack() { munmap(stack_, size); }

    // The bytes that a call has used, beyond those of an empty thread.
    std::size_t used_by(const std::function<void()> &call) { return used(call) - empty_; }

private:
    static constexpr std::size_t size = 256 << 10;
    static constexpr int paint = 0xA5;

    std::size_t used(const std::function<void()> &call) {
        std::memset(stack_, paint, size);
        pthread_attr_t attributes;
        pthread_t thread;
        pthread_attr_init(&attributes);
        EXPECT_EQ(pthread_attr_setstack(&attributes, stack_, size), 0);
        const auto run = [](void *what) -> void * {
            (*static_cast<const std::function<void()> *>(what))();
            return nullptr;
        };
        EXPECT_EQ(
            pthread_create(&thread, &attributes, run, const_cast<std::function<void()> *>(&call)),
            0);
        pthread_join(thread, nullptr);
        pthread_attr_destroy(&attributes);
        const auto *const begin = static_cast<const unsigned char *>(stack_);
        return std::size_t(begin + size - std::find_if(begin, begin + size, [](unsigned char c) {
                               return c != paint;
                           }));
    }

    void *const stack_ =
        mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    std::size_t empty_;
};

// Some objects are done over alone, as some of their minors are 0; the last one may be in vain.
void make_hard(Problem &problem, bool last_is_zero) {
    Placed &from = problem.operands[0];
    const int last = problem.sizes.count - 1;
    from.for_each_element([&](int n, int i, int j) {
        if (n % 3 == 1)
            from.put(n, i, j, i == j ? .5 : 0);
        else if (n == last && last_is_zero)
            from.put(n, i, j, 0);
    });
}

TEST(Stack, EveryMemberOnItsCallersThread) {
    zelSetNumThreads(1);
    PaintedStack stack;
    std::size_t most = 0;
    std::string where;
    for (const Member &m : members()) {
        if (m.name.find("GetBufSize") != std::string::npos)
            continue;
        const bool slow = m.is_square() || m.family.starts_with("QR");
        int step = 0;
        for (const int size : {1, 2, 3, 4, 5, 6, 7, 8, 16, 17, 33})
            for (const int shape : {packed, strided, planar, -1}) {
                ++step;
                Problem problem(m, {size, size, size, size > 16 && slow ? 2 : 7},
                                shape < 0 ? mixed(m, step) : all_in(m, shape));
                problem.fill(unsigned(step));
                if (m.is_square())
                    make_hard(problem, true);
                problem.run(); // so that no symbol is looked up below
                const std::size_t used = stack.used_by([&] { m.call(problem.slots); });
                if (used > most) {
                    most = used;
                    where = problem.describe();
                }
            }
    }
    EXPECT_LE(most, promised) << where;
    EXPECT_GT(most, promised / 2) << "of which nothing has been seen";
    RecordProperty("bytes", int(most));
}

// With a runtime that gives them no more than the documents ask for.
TEST(Stack, EveryArrayMemberOnWorkers) {
    zelSetNumThreads(3);
    int seen = 0;
    for (const Member &m : members()) {
        if (!m.is_array())
            continue;
        ++seen;
        for (const int order : {4, 16}) {
            Sizes sizes = parallel_sizes(m);
            if (order > 4 && !m.is_square())
                continue;
            if (order > 4)
                sizes = {order, order, order, m.family == "Det" ? 1003 : 91};
            Problem problem(m, sizes, all_in(m, strided));
            problem.fill(1);
            if (order > 4)
                make_hard(problem, false);
            EXPECT_EQ(problem.run(), 0) << problem.describe();
        }
    }
    EXPECT_EQ(seen, 595);
}

} // namespace
