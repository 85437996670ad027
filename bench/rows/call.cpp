// Single calls, held against empty functions with as many arguments. Both are called through the
// procedure linkage table.
#include "../empty.h"
#include "rows.hpp"

namespace zelm::bench {
namespace {

constexpr int calls = 1000;

template <auto Function, class... Arguments>
void repeat(Arguments... arguments) {
    for (int i = 0; i < calls; ++i)
        Function(arguments...);
}

using Run = void (*)(const Problem &);

template <class T>
void mul_4x4(const Problem &p) {
    repeat<BENCH_MEMBER(T, zelmMul_mm)>(base<const T>(p.a), p.a.row, p.a.element, 4, 4,
                                        base<const T>(p.b), p.b.row, p.b.element, 4, 4,
                                        base<T>(p.c), p.c.row, p.c.element);
}

void empty_mul(const Problem &p) {
    repeat<bench_empty_mul>(p.a.base, p.a.row, p.a.element, 4, 4, p.b.base, p.b.row, p.b.element, 4,
                            4, p.c.base, p.c.row, p.c.element);
}

template <class T>
void add_3x3(const Problem &p) {
    repeat<BENCH_MEMBER(T, zelmAdd_mm)>(base<const T>(p.a), p.a.row, p.a.element,
                                        base<const T>(p.b), p.b.row, p.b.element, base<T>(p.c),
                                        p.c.row, p.c.element, 3, 3);
}

void empty_add(const Problem &p) {
    repeat<bench_empty_add>(p.a.base, p.a.row, p.a.element, p.b.base, p.b.row, p.b.element,
                            p.c.base, p.c.row, p.c.element, 3, 3);
}

template <class T>
void add_calls(Rows &rows, const std::string &work, BenchWork kind, Shape shape, Run library,
               Run empty, Floor floor) {
    const auto open = [=] {
        const auto space =
            std::make_shared<Workspace>(kind, type_of<T>, shape, bench_packed, 1, false);
        space->fill(1);
        Contest contest;
        const Problem &problem = space->problem();
        const auto check = [space, library] {
            space->poison();
            library(space->problem());
            return space->error(bench_pivots_none) <= 1 ? std::string() : "wrong result";
        };
        contest.competitors = {
            {"library", Build::library, [=, &problem] { library(problem); }, {}, check},
            {"empty call", Build::reference, [=, &problem] { empty(problem); }},
        };
        contest.units = calls;
        contest.memory = space;
        return contest;
    };
    rows.add<T>({.work = work,
                 .type = {},
                 .shape = std::to_string(shape.rows) + 'x' + std::to_string(shape.columns),
                 .memory = "single call",
                 .data = "repeated",
                 .count = 1,
                 .bound = "arguments, checks",
                 .floor = floor,
                 .threads = 1,
                 .open = open});
}

} // namespace

void add_call_rows(Rows &rows) {
    const Floor mul = at_most(3, "empty call"), add = at_most(1.9, "empty call");
    const Floor only_shown = shown("empty call");
    add_calls<float>(rows, "Mul mm", bench_mul, {4, 4, 4}, mul_4x4<float>, empty_mul, mul);
    add_calls<double>(rows, "Mul mm", bench_mul, {4, 4, 4}, mul_4x4<double>, empty_mul, only_shown);
    add_calls<float>(rows, "Add mm", bench_add, {3, 0, 3}, add_3x3<float>, empty_add, add);
    add_calls<double>(rows, "Add mm", bench_add, {3, 0, 3}, add_3x3<double>, empty_add, only_shown);
}

} // namespace zelm::bench
