// Eigenvalues and eigenvectors of general real matrices: Householder reduction to Hessenberg form,
// double-shift QR iteration to quasi-triangular form, back-substitution.
// Golub, Van Loan: Matrix Computations, 7.4 to 7.6. Martin, Peters, Wilkinson and Peters,
// Wilkinson: Handbook for Automatic Computation II, contributions II/14 and II/15.
//
// All is packed in the caller's buffer. The transformation is kept transposed, so that each of its
// columns, and later each eigenvector, is a run of memory.
#pragma once

#include "../frame/element_at.hpp"

#include <cstddef>
#include <initializer_list>
#include <limits>

namespace zelm {

template <class T>
struct EigenLimits {
    static constexpr bool single = sizeof(T) == 4;
    static constexpr T epsilon = zelm::epsilon<T>;
    static constexpr T tiny = 2 * smallest_normal<T>;
    // Matrices with a largest element in this range are worked on as they are: no square overflows,
    // and none underflows of what counts beside that element.
    static constexpr T least = single ? T(0x1p-20) : T(0x1p-200);
    static constexpr T most = single ? T(0x1p20) : T(0x1p200);
    // Sums of squares below this have lost accuracy to underflow.
    static constexpr T least_square = single ? T(0x1p-90) : T(0x1p-900);
    // An eigenvector that grows beyond this is scaled.
    static constexpr T growth = single ? T(0x1p11) : T(0x1p26);
};

// What the iteration does for its end: subdiagonal elements below `negligible` count as zero,
// whatever stands beside them; exceptional shifts come as long as it takes, or twice for each
// value.
template <class T>
struct Effort {
    T negligible = EigenLimits<T>::tiny;
    bool insists = false;
};

template <class T>
struct Complex {
    T re, im;

    friend Complex operator+(Complex a, Complex b) { return {a.re + b.re, a.im + b.im}; }
    friend Complex operator-(Complex a, Complex b) { return {a.re - b.re, a.im - b.im}; }
    friend Complex operator*(Complex a, Complex b) {
        return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re};
    }
    friend Complex operator*(T a, Complex b) { return {a * b.re, a * b.im}; }
    // Smith's: the larger part of the divisor is divided by.
    friend Complex operator/(Complex a, Complex b) {
        if (zelm::magnitude(b.re) >= zelm::magnitude(b.im)) {
            const T t = b.im / b.re, d = b.re + b.im * t;
            return {(a.re + a.im * t) / d, (a.im - a.re * t) / d};
        }
        const T t = b.re / b.im, d = b.re * t + b.im;
        return {(a.re * t + a.im) / d, (a.im * t - a.re) / d};
    }
};
template <class T>
ZELM_INLINE T magnitude(Complex<T> x) {
    return magnitude(x.re) + magnitude(x.im);
}

// f(j, V{}) for the elements from ... to - 1 of a run: registers, then single ones.
template <class T, class F>
ZELM_INLINE void along_run(int from, int to, const F &f) {
    int j = from;
    for (; j <= to - lanes_of<Lanes<T>>; j += lanes_of<Lanes<T>>)
        f(j, Lanes<T>{});
    for (; j < to; ++j)
        f(j, T{});
}

// Of an order known when compiled, or of order n.
template <class T, bool vectors, int order>
class GeneralEigen {
public:
    using Run = Unaligned<T> *;
    using Limits = EigenLimits<T>;

    // `matrix` and, for vectors, `transform` have n * n elements, `work` 5 * n.
    GeneralEigen(Run matrix, Run transform, Run work, int n, Effort<T> effort = {})
        : matrix_(matrix),
          transform_(transform),
          re_(work),
          im_(work + n),
          u_(work + std::ptrdiff_t{2} * n),
          v_(work + std::ptrdiff_t{3} * n),
          n_(n),
          effort_(effort) {}

    // Of the matrix given, which may be scaled: its values, its quasi-triangular form and the
    // transformation to it. False where the sweeps do not suffice.
    [[gnu::noinline]] bool decompose() {
        exponent_ = scale();
        reduce();
        if (!iterate())
            return false;
        if constexpr (vectors)
            measure();
        return true;
    }
    // Once the vectors have been found.
    void unscale() const {
        if (exponent_ != 0)
            for (int i = 0; i < n(); ++i) {
                re_[i] = std::ldexp(T(re_[i]), exponent_);
                im_[i] = std::ldexp(T(im_[i]), exponent_);
            }
    }

    // Turns the transformation, or a copy of it, into the right or left eigenvectors, one in each
    // run, a pair in two: the real part and the imaginary part of the first.
    template <bool left>
    [[gnu::noinline]] void find_vectors(Run to) {
        for (int j = n() - 1; j >= 0; --j)
            if (im_[place<left>(j)] == 0) {
                solve_real<left>(j);
                combine_real<left>(to, j);
            } else {
                solve_complex<left>(j);
                combine_complex<left>(to, j);
                --j;
            }
    }

private:
    ZELM_INLINE int n() const { return order > 0 ? order : n_; }
    ZELM_INLINE Run row(int i) const { return matrix_ + std::ptrdiff_t{i} * n(); }
    ZELM_INLINE Run run_of(Run runs, int j) const { return runs + std::ptrdiff_t{j} * n(); }

    // Brings the largest element near 1 where it is out of the range; returns the exponent taken.
    int scale() const {
        const std::ptrdiff_t elements = std::ptrdiff_t{n()} * n();
        T largest = 0;
        for (std::ptrdiff_t e = 0; e < elements; ++e) {
            const T x = magnitude(T(matrix_[e]));
            largest = x > largest ? x : largest;
        }
        if ((largest >= Limits::least && largest <= Limits::most) || largest == 0 ||
            largest > std::numeric_limits<T>::max()) [[likely]]
            return 0;
        int exponent = 0;
        std::frexp(largest, &exponent);
        for (std::ptrdiff_t e = 0; e < elements; ++e)
            matrix_[e] = std::ldexp(T(matrix_[e]), -exponent);
        return exponent;
    }

    static T hypotenuse(T a, T b) {
        const T w = a > b ? a : b, z = a > b ? b : a;
        if (z < Limits::tiny)
            return w;
        const T ratio = z / w;
        return w * square_root(1 + ratio * ratio);
    }

    // Of the elements of column k below the subdiagonal, whose squares may underflow.
    [[gnu::noinline]] T length_of_small(int k) const {
        T largest = 0, square = 0;
        for (int i = k + 2; i < n(); ++i)
            largest = larger(magnitude(T(row(i)[k])), largest);
        if (largest < Limits::tiny)
            return largest;
        for (int i = k + 2; i < n(); ++i)
            square = square + (row(i)[k] / largest) * (row(i)[k] / largest);
        return largest * square_root(square);
    }

    // Hessenberg form; what is below is set to zero.
    void reduce() const {
        if constexpr (vectors)
            for (int j = 0; j < n(); ++j)
                for (int r = 0; r < n(); ++r)
                    run_of(transform_, j)[r] = r == j;
        const int n = this->n();
        const Run v = u_;
        for (int k = 0; k + 2 < n; ++k) {
            T square = 0;
            for (int i = k + 2; i < n; ++i)
                square = square + row(i)[k] * row(i)[k];
            T rest = square_root(square);
            if (square < Limits::least_square) [[unlikely]]
                rest = length_of_small(k);
            const T alpha = row(k + 1)[k];
            if (rest < Limits::tiny) {
                for (int i = k + 2; i < n; ++i)
                    row(i)[k] = 0;
                continue;
            }
            const T length = hypotenuse(magnitude(alpha), rest);
            const T beta = -std::copysign(length, alpha);
            const T tau = (beta - alpha) / beta, factor = 1 / (alpha - beta);
            v[k + 1] = 1;
            for (int i = k + 2; i < n; ++i) {
                v[i] = row(i)[k] * factor;
                row(i)[k] = 0;
            }
            row(k + 1)[k] = beta;

            // Runs of the rows, or of the transposed transformation, from k + 1 on.
            const auto reflect = [&](Run runs, int from) __attribute__((always_inline)) {
                along_run<T>(
                    from, n, [&](int r, auto zero) __attribute__((always_inline)) {
                        using V = decltype(zero);
                        const auto at = [&](int i) __attribute__((always_inline)) {
                            return run_of(runs, i) + r;
                        };
                        V w = load<V>(at(k + 1));
                        for (int i = k + 2; i < n; ++i)
                            w = w + splat<V>(v[i]) * load<V>(at(i));
                        w = w * splat<V>(tau);
                        store<V>(at(k + 1), load<V>(at(k + 1)) - w);
                        for (int i = k + 2; i < n; ++i)
                            store<V>(at(i), load<V>(at(i)) - splat<V>(v[i]) * w);
                    });
            };
            reflect(matrix_, k + 1);
            for (int i = 0; i < n; ++i) {
                const Run a = row(i);
                T w = a[k + 1];
                for (int j = k + 2; j < n; ++j)
                    w = w + a[j] * v[j];
                w = w * tau;
                a[k + 1] = a[k + 1] - w;
                for (int j = k + 2; j < n; ++j)
                    a[j] = a[j] - w * v[j];
            }
            if constexpr (vectors)
                reflect(transform_, 0);
        }
    }

    // The subdiagonal element beside (k, k) is negligible beside its neighbours.
    bool negligible(int k) const {
        const T below = magnitude(T(row(k)[k - 1]));
        if (below < effort_.negligible)
            return true;
        T beside = magnitude(T(row(k - 1)[k - 1])) + magnitude(T(row(k)[k]));
        if (beside == 0) {
            beside = k > 1 ? magnitude(T(row(k - 1)[k - 2])) : 0;
            beside = beside + (k + 1 < n() ? magnitude(T(row(k + 1)[k])) : 0);
        }
        return below <= Limits::epsilon * beside;
    }

    bool iterate() const {
        int budget = 30 * n(); // orders are far below what this could wrap
        int sweeps = 0;        // since the last value
        for (int bottom = n() - 1; bottom >= 0;) {
            int top = bottom;
            while (top > 0 && !negligible(top))
                --top;
            if (top > 0)
                row(top)[top - 1] = 0;
            if (top == bottom) {
                re_[bottom] = row(bottom)[bottom];
                im_[bottom] = 0;
                bottom -= 1;
                sweeps = 0;
            } else if (top + 1 == bottom) {
                isolate_pair(bottom);
                bottom -= 2;
                sweeps = 0;
            } else {
                if (budget-- == 0)
                    return false;
                sweep(top, bottom,
                      effort_.insists ? sweeps % 10 == 9 : sweeps == 10 || sweeps == 20);
                ++sweeps;
            }
        }
        return true;
    }

    // The values of the block in rows i - 1 and i. Where they are real the block becomes
    // triangular.
    void isolate_pair(int i) const {
        const T a = row(i - 1)[i - 1], b = row(i - 1)[i], c = row(i)[i - 1], d = row(i)[i];
        const T p = T(0.5) * (a - d), q = p * p + c * b;
        const T root = square_root(magnitude(q));
        if (!(q >= 0)) {
            re_[i - 1] = re_[i] = d + p;
            im_[i - 1] = root;
            im_[i] = -root;
            return;
        }
        const T z = p + std::copysign(root, p);
        re_[i - 1] = d + z;
        re_[i] = z == 0 ? d : d - c * b / z;
        im_[i - 1] = im_[i] = 0;
        if constexpr (vectors) {
            const T size = magnitude(c) + magnitude(z); // c is not negligible
            const T x = c / size, y = z / size;
            const T length = square_root(x * x + y * y);
            const T s = x / length, t = y / length;
            const auto turn = [&](Run first, Run second, int from) __attribute__((always_inline)) {
                along_run<T>(
                    from, n(), [&](int j, auto zero) __attribute__((always_inline)) {
                        using V = decltype(zero);
                        const V f = load<V>(first + j), g = load<V>(second + j);
                        store<V>(first + j, splat<V>(t) * f + splat<V>(s) * g);
                        store<V>(second + j, splat<V>(t) * g - splat<V>(s) * f);
                    });
            };
            turn(row(i - 1), row(i), i - 1);
            for (int r = 0; r <= i; ++r) {
                const Run f = row(r) + (i - 1);
                const T old = f[0];
                f[0] = t * old + s * f[1];
                f[1] = t * f[1] - s * old;
            }
            turn(run_of(transform_, i - 1), run_of(transform_, i), 0);
            row(i - 1)[i - 1] = re_[i - 1];
            row(i)[i] = re_[i];
            row(i)[i - 1] = 0;
        }
    }

    // One double-shift sweep over the rows top ... bottom, of which there are three or more.
    void sweep(int top, int bottom, bool exceptional) const {
        T last = row(bottom)[bottom], before = row(bottom - 1)[bottom - 1];
        T left = row(bottom)[bottom - 1], right = row(bottom - 1)[bottom];
        if (exceptional) {
            const T s = magnitude(left) + magnitude(T(row(bottom - 1)[bottom - 2]));
            last = before = T(0.75) * s + last;
            left = T(-0.4375) * s;
            right = s;
        }
        // The first column of (H - s1)(H - s2), from the lowest row on that may begin.
        const T product = left * right;
        T p = 0, q = 0, r = 0;
        int first = bottom - 2;
        for (;; --first) {
            const T z = row(first)[first];
            const T x = last - z, y = before - z;
            const T beside = row(first)[first + 1], below = row(first + 1)[first];
            const T sum = row(first + 1)[first + 1] - z - x - y;
            const T next = row(first + 2)[first + 1];
            p = x * y - product + beside * below;
            q = sum * below;
            r = next * below;
            if (magnitude(p) + magnitude(q) + magnitude(r) < Limits::least_square) [[unlikely]] {
                // Their products underflow: the same, divided by the largest of the factors.
                T s = 0;
                for (const T of : {x, y, left, right, beside, below, sum, next})
                    s = larger(magnitude(of), s);
                if (s >= Limits::tiny) {
                    p = x / s * y - left / s * right + beside / s * below;
                    q = sum / s * below;
                    r = next / s * below;
                }
            }
            if (first == top)
                break;
            const T above = magnitude(T(row(first - 1)[first - 1])) + magnitude(z) +
                            magnitude(T(row(first + 1)[first + 1]));
            if (magnitude(T(row(first)[first - 1])) * (magnitude(q) + magnitude(r)) <=
                Limits::epsilon * magnitude(p) * above)
                break;
        }
        for (int k = first; k < bottom; ++k) {
            const bool three = k + 1 < bottom;
            if (k > first) {
                p = row(k)[k - 1];
                q = row(k + 1)[k - 1];
                r = three ? T(row(k + 2)[k - 1]) : T(0);
            }
            T size = 1;
            T square = p * p + q * q + r * r;
            if (square < Limits::least_square) [[unlikely]] {
                size = magnitude(p) + magnitude(q) + magnitude(r);
                if (size == 0)
                    continue;
                p = p / size;
                q = q / size;
                r = r / size;
                square = p * p + q * q + r * r;
            }
            const T length = square_root(square), s = std::copysign(length, p);
            if (k > first) {
                row(k)[k - 1] = -s * size;
                row(k + 1)[k - 1] = 0;
                if (three)
                    row(k + 2)[k - 1] = 0;
            } else if (k > top) {
                row(k)[k - 1] = -row(k)[k - 1];
            }
            // I - (x, y, z)^T * (1, q, r)
            p = p + s;
            const T inverse = 1 / s, x = p * inverse, y = q * inverse, z = r * inverse;
            const T over = 1 / p;
            q = q * over;
            r = r * over;
            if (three)
                reflect<true>(top, bottom, k, x, y, z, q, r);
            else
                reflect<false>(top, bottom, k, x, y, z, q, r);
        }
    }

    template <bool three>
    ZELM_INLINE void reflect(int top, int bottom, int k, T x, T y, T z, T q, T r) const {
        const auto runs = [&](Run first, int from, int to) __attribute__((always_inline)) {
            const Run second = first + n(), third = second + n();
            along_run<T>(
                from, to, [&](int j, auto zero) __attribute__((always_inline)) {
                    using V = decltype(zero);
                    const V f = load<V>(first + j), g = load<V>(second + j);
                    V w = f + splat<V>(q) * g;
                    if constexpr (three) {
                        const V h = load<V>(third + j);
                        w = w + splat<V>(r) * h;
                        store<V>(third + j, h - w * splat<V>(z));
                    }
                    store<V>(second + j, g - w * splat<V>(y));
                    store<V>(first + j, f - w * splat<V>(x));
                });
        };
        // Only the block takes part where the triangular form is not wanted.
        runs(row(k), k, vectors ? n() : bottom + 1);
        const int end = k + 3 < bottom ? k + 3 : bottom;
        for (int i = vectors ? 0 : top; i <= end; ++i) {
            const Run a = row(i) + k;
            T w = x * a[0] + y * a[1];
            if constexpr (three)
                w = w + z * a[2];
            a[0] = a[0] - w;
            a[1] = a[1] - w * q;
            if constexpr (three)
                a[2] = a[2] - w * r;
        }
        if constexpr (vectors)
            transform_reflected<three>(k, x, y, z, q, r);
    }
    // Columns of the transformation are its runs.
    template <bool three>
    ZELM_INLINE void transform_reflected(int k, T x, T y, T z, T q, T r) const {
        const Run first = run_of(transform_, k), second = first + n(), third = second + n();
        along_run<T>(
            0, n(), [&](int j, auto zero) __attribute__((always_inline)) {
                using V = decltype(zero);
                const V f = load<V>(first + j), g = load<V>(second + j);
                V w = splat<V>(x) * f + splat<V>(y) * g;
                if constexpr (three) {
                    const V h = load<V>(third + j);
                    w = w + splat<V>(z) * h;
                    store<V>(third + j, h - w * splat<V>(r));
                }
                store<V>(second + j, g - w * splat<V>(q));
                store<V>(first + j, f - w);
            });
    }

    // ---- vectors of the quasi-triangular form ----
    // The left vectors are the right ones of the transpose, which is upper triangular again when
    // rows and columns are counted from the other end.

    template <bool left>
    ZELM_INLINE int place(int i) const {
        return left ? n() - 1 - i : i;
    }
    template <bool left>
    ZELM_INLINE T element(int i, int j) const {
        return left ? row(n() - 1 - j)[n() - 1 - i] : row(i)[j];
    }
    // Divisors below this are replaced by it.
    void measure() {
        T largest = 0;
        for (int i = 0; i < n(); ++i) {
            T sum = 0;
            for (int j = i > 0 ? i - 1 : 0; j < n(); ++j)
                sum = sum + magnitude(T(row(i)[j]));
            largest = sum > largest ? sum : largest;
        }
        const T least = Limits::epsilon * largest;
        divisor_ = least > Limits::tiny / Limits::epsilon ? least : Limits::tiny / Limits::epsilon;
    }

    template <class X>
    ZELM_INLINE X component(int k) const {
        if constexpr (std::is_same_v<X, T>)
            return u_[k];
        else
            return {u_[k], v_[k]};
    }
    ZELM_INLINE void set_component(int k, T x) const { u_[k] = x; }
    ZELM_INLINE void set_component(int k, Complex<T> x) const {
        u_[k] = x.re;
        v_[k] = x.im;
    }
    ZELM_INLINE static void set(T &x, T value) { x = value; }
    ZELM_INLINE static void set(Complex<T> &x, T value) { x = {value, 0}; }

    // Components i ... 0, those from i + 1 to j being known.
    template <bool left, class X>
    void substitute(int i, int j, X lambda) const {
        const auto rest = [&](int of) {
            X sum = {};
            for (int k = i + 1; k <= j; ++k)
                sum = sum - element<left>(of, k) * component<X>(k);
            return sum;
        };
        const auto less_lambda = [&](int at) {
            X x;
            set(x, element<left>(at, at));
            return x - lambda;
        };
        const auto divisible = [&](X x) {
            if (magnitude(x) < divisor_)
                set(x, divisor_);
            return x;
        };
        while (i >= 0) {
            T size;
            int next = i - 1;
            if (im_[place<left>(i)] == 0) {
                const X x = rest(i) / divisible(less_lambda(i));
                set_component(i, x);
                size = magnitude(x);
            } else { // by elimination with the larger of the first column
                next = i - 2;
                X a = less_lambda(i - 1), b, c, d = less_lambda(i);
                set(b, element<left>(i - 1, i));
                set(c, element<left>(i, i - 1));
                X r = rest(i - 1), s = rest(i);
                if (magnitude(c) > magnitude(a)) {
                    std::swap(a, c);
                    std::swap(b, d);
                    std::swap(r, s);
                }
                a = divisible(a);
                const X f = c / a;
                const X y = (s - f * r) / divisible(d - f * b);
                const X x = (r - b * y) / a;
                set_component(i - 1, x);
                set_component(i, y);
                size = magnitude(x) + magnitude(y);
            }
            if (size > Limits::growth)
                for (int k = next + 1; k <= j; ++k)
                    set_component(k, (1 / size) * component<X>(k));
            i = next;
        }
    }
    template <bool left>
    void solve_real(int j) const {
        set_component(j, T{1});
        substitute<left>(j - 1, j, T{re_[place<left>(j)]});
    }
    // The value with the positive imaginary part of the pair in places j - 1 and j.
    template <bool left>
    void solve_complex(int j) const {
        const T re = re_[place<left>(j)], im = magnitude(T(im_[place<left>(j)]));
        const T a = element<left>(j - 1, j - 1), b = element<left>(j - 1, j);
        const T c = element<left>(j, j - 1), d = element<left>(j, j);
        if (magnitude(c) >= magnitude(b)) {
            set_component(j - 1, Complex<T>{(re - d) / c, im / c});
            set_component(j, Complex<T>{1, 0});
        } else {
            set_component(j - 1, Complex<T>{1, 0});
            set_component(j, Complex<T>{(re - a) / b, im / b});
        }
        substitute<left>(j - 2, j, Complex<T>{re, im});
    }

    // The combination of runs 0 ... j by the components takes the place of run j, with length 1.
    template <bool left>
    void combine_real(Run runs, int j) const {
        T square = 0;
        const Run to = run_of(runs, place<left>(j));
        along_run<T>(
            0, n(), [&](int r, auto zero) __attribute__((always_inline)) {
                using V = decltype(zero);
                V sum = splat<V>(u_[0]) * load<V>(run_of(runs, place<left>(0)) + r);
                for (int k = 1; k <= j; ++k)
                    sum = sum + splat<V>(u_[k]) * load<V>(run_of(runs, place<left>(k)) + r);
                store<V>(to + r, sum);
            });
        for (int r = 0; r < n(); ++r)
            square = square + to[r] * to[r];
        if (square > Limits::tiny) {
            const T factor = 1 / square_root(square);
            for (int r = 0; r < n(); ++r)
                to[r] = to[r] * factor;
        }
    }
    template <bool left>
    void combine_complex(Run runs, int j) const {
        const Run real = run_of(runs, left ? place<left>(j) : j - 1), imaginary = real + n();
        const T sign = left ? -1 : 1; // u^H, not u^T
        along_run<T>(
            0, n(), [&](int r, auto zero) __attribute__((always_inline)) {
                using V = decltype(zero);
                V re = splat<V>(0), im = splat<V>(0);
                for (int k = 0; k <= j; ++k) {
                    const V x = load<V>(run_of(runs, place<left>(k)) + r);
                    re = re + splat<V>(u_[k]) * x;
                    im = im + splat<V>(v_[k]) * x;
                }
                store<V>(real + r, re);
                store<V>(imaginary + r, splat<V>(sign) * im);
            });
        T square_re = 0, square_im = 0;
        for (int r = 0; r < n(); ++r) {
            square_re = square_re + real[r] * real[r];
            square_im = square_im + imaginary[r] * imaginary[r];
        }
        const T factor = 1 / square_root(square_re + square_im);
        for (int r = 0; r < n(); ++r) {
            real[r] = real[r] * factor;
            imaginary[r] = imaginary[r] * factor;
        }
    }

    const Run matrix_, transform_, re_, im_, u_, v_;
    const int n_;
    const Effort<T> effort_;
    int exponent_ = 0;
    T divisor_ = 0;
};

} // namespace zelm
