// Lengths, counts and sizes at the limit of int, in memory that is mapped and not there: sources of
// zeros but for their last elements, destinations whose pages are the same few again and again.

#include <climits>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>
#include <vector>
#include <zelm.h>

namespace {

constexpr int ok = 0, bad_size = -6;
constexpr std::size_t most = INT_MAX;
constexpr int f = sizeof(float);

// Whole pages that end before an inaccessible one.
class Mapping {
public:
    // Zeros; what is written stays.
    static Mapping zeros(std::size_t bytes) {
        Mapping m(bytes);
        m.map(m.begin_, m.size_, MAP_PRIVATE | MAP_ANONYMOUS, -1);
        madvise(m.begin_, m.size_, MADV_HUGEPAGE); // many zeros are then one page
        return m;
    }
    // The same `period` bytes again and again.
    static Mapping repeated(std::size_t bytes) {
        Mapping m(bytes);
        const int file = memfd_create("limits", 0);
        EXPECT_EQ(ftruncate(file, static_cast<off_t>(period)), 0);
        for (std::size_t at = 0; at < m.size_; at += period)
            m.map(m.begin_ + at, period, MAP_SHARED, file);
        close(file);
        return m;
    }
    Mapping(Mapping &&other) : begin_(other.begin_), size_(other.size_) { other.size_ = 0; }
    ~Mapping() {
        if (size_ != 0)
            munmap(begin_, size_ + page);
    }

    // The last n elements, an odd address for `shift`.
    template <class T>
    T *last(std::size_t n, std::size_t shift = 0) const {
        return reinterpret_cast<T *>(begin_ + size_ - n * sizeof(T) - shift);
    }

private:
    static constexpr std::size_t period = std::size_t{2} << 20, page = 4096;

    explicit Mapping(std::size_t bytes) : size_((bytes + period - 1) / period * period) {
        void *const all = mmap(nullptr, size_ + page, PROT_NONE,
                               MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
        begin_ = all == MAP_FAILED ? nullptr : static_cast<std::byte *>(all);
        EXPECT_NE(begin_, nullptr) << "of " << bytes << " bytes of addresses";
    }
    static void map(std::byte *at, std::size_t bytes, int flags, int file) {
        EXPECT_NE(
            mmap(at, bytes, PROT_READ | PROT_WRITE, flags | MAP_FIXED | MAP_NORESERVE, file, 0),
            MAP_FAILED);
    }

    std::byte *begin_;
    std::size_t size_;
};

// Each is mapped once, as its pages take time.
constexpr std::size_t room = (most + 64) * sizeof(float);
const Mapping &zeros() {
    static const Mapping m = Mapping::zeros(room);
    return m;
}
float *results() {
    static const Mapping m = Mapping::repeated(room);
    return m.last<float>(most);
}

// `most` elements, zeros but for the last ones: 1, 2, ... 12.
class Source {
public:
    explicit Source(std::size_t shift = 0) : x_(zeros().last<float>(most, shift)) {
        for (int k = 0; k < tail; ++k)
            put(k, static_cast<float>(k + 1));
    }
    ~Source() {
        for (int k = 0; k < tail; ++k)
            put(k, 0);
    }
    const float *data() const { return x_; }

private:
    static constexpr int tail = 12;
    void put(int k, float value) {
        std::memcpy(reinterpret_cast<std::byte *>(x_) +
                        (most - tail + std::size_t(k)) * sizeof value,
                    &value, sizeof value);
    }
    float *x_;
};

// The last of `most` results.
testing::AssertionResult ends_in(const float *d, const std::vector<float> &values) {
    for (std::size_t k = 0; k < values.size(); ++k)
        if (const float is = d[most - values.size() + k]; is != values[k])
            return testing::AssertionFailure()
                   << "element " << most - values.size() + k << " is " << is;
    return testing::AssertionSuccess();
}

// Odd addresses and all that are whole elements behind a multiple of 16.
TEST(Limits, TheLongestVectors) {
    for (const std::size_t shift : {0u, 1u, 4u}) {
        const Source x(shift);
        float dot = -1;
        EXPECT_EQ(zelmDotProduct_vv_32f(x.data(), f, x.data(), f, &dot, INT_MAX), ok);
        EXPECT_EQ(dot, 650) << shift; // 1 + 4 + ... + 144
    }
    const Source x;
    float norm = -1;
    EXPECT_EQ(zelmL2Norm_v_32f(x.data(), f, &norm, INT_MAX), ok);
    EXPECT_EQ(norm, std::sqrt(650.f));
}

// Objects begin one element behind one another. The estimates of the work wrap: all is serial.
TEST(Limits, TheMostObjects) {
    const Source x;
    float *const d = results();
    const float y[8] = {1, 0, 0, 0, 0, 0, 0, 2};
    EXPECT_EQ(zelmDotProduct_vav_32f(x.data() - 7, f, f, y, f, d, 8, INT_MAX), ok);
    EXPECT_TRUE(ends_in(d, {0, 2, 4, 6, 8, 10, 12, 14, 17, 20, 23, 26, 29}));

    const float *const table[] = {x.data()};
    float *const to[] = {d};
    EXPECT_EQ(zelmAdd_vac_32f_P(table, 0, f, 1, to, 0, f, 1, INT_MAX), ok);
    EXPECT_TRUE(ends_in(d, {1, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13}));

    // Results overlap as well: of each the first element stays.
    const float a[4][4] = {{0, 0, 0, 1}, {9, 9, 9, 9}, {9, 9, 9, 9}, {9, 9, 9, 9}};
    const float b[4] = {5, 0, 0, 0};
    EXPECT_EQ(zelmGaxpy_mvav_32f(&a[0][0], 4 * f, f, 4, 4, x.data() - 3, f, f, 4, b, f, 4, d - 3, f,
                                 f, INT_MAX),
              ok);
    EXPECT_TRUE(ends_in(d - 3, {5, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17}));
}

TEST(Limits, TheLargestSizes) {
    const Source x;
    float *const d = results();
    const float two = 2;
    float sum = -1;
    EXPECT_EQ(
        zelmGaxpy_mv_32f(x.data(), f, f, INT_MAX, 1, x.data(), f, INT_MAX, &two, f, 1, &sum, f),
        ok);
    EXPECT_EQ(sum, 652);

    const auto doubled = [&] {
        return ends_in(d, {0, 2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 22, 24});
    };
    EXPECT_EQ(zelmMul_mm_32f(&two, f, f, 1, 1, x.data(), f, f, INT_MAX, 1, d, f, f), ok);
    EXPECT_TRUE(doubled());
    EXPECT_EQ(zelmMul_mm_32f(x.data(), f, f, 1, INT_MAX, &two, f, f, 1, 1, d, f, f), ok);
    EXPECT_TRUE(doubled());

    const auto same = [&] { return ends_in(d, {0, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}); };
    for (const bool wide : {true, false}) {
        std::memset(d + (most - 13), -1, 13 * sizeof(float));
        EXPECT_EQ(wide ? zelmTranspose_m_32f(x.data(), f, f, INT_MAX, 1, d, f, f)
                       : zelmTranspose_m_32f(x.data(), f, f, 1, INT_MAX, d, f, f),
                  ok);
        EXPECT_TRUE(same());
    }
}

// The size of the scratch is an int: orders whose scratch is larger have no answer.
TEST(Limits, TheLargestScratch) {
    constexpr struct {
        ZelStatus (*query)(int n, int *size);
        int largest, bytes;
    } of[] = {
        {zelmEigenValuesGetBufSize_32f, 23167, 2147302896},
        {zelmEigenValuesGetBufSize_64f, 16381, 2147352528},
        {zelmEigenValuesVectorsGetBufSize_32f, 13376, 2147276032},
        {zelmEigenValuesVectorsGetBufSize_64f, 9458, 2147268656},
    };
    for (const auto &[query, largest, bytes] : of) {
        int size = -1;
        EXPECT_EQ(query(largest, &size), ok);
        EXPECT_EQ(size, bytes);
        for (const int n : {largest + 1, 16000, 32768, 46341, 65536, 1 << 30, INT_MAX})
            if (n > largest) {
                EXPECT_EQ(query(n, &size), bad_size) << n;
                EXPECT_EQ(size, bytes) << n;
            }
    }
}

} // namespace
