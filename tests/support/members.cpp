#include "members.hpp"

#include <algorithm>
#include <atomic>
#include <csignal>
#include <cstdio>
#include <sstream>
#include <stdexcept>
#include <type_traits>
#include <unistd.h>
#include <utility>

namespace zelm_test {
namespace {

template <class A>
A argument(const Slot &slot) {
    if constexpr (std::is_pointer_v<A>)
        return static_cast<A>(slot.pointer);
    else if constexpr (std::is_integral_v<A>)
        return slot.integer;
    else
        return static_cast<A>(slot.real);
}

template <class A>
constexpr char letter_of() {
    if constexpr (std::is_pointer_v<A>)
        return std::is_pointer_v<std::remove_pointer_t<A>> ? 't' : 'p';
    else
        return std::is_integral_v<A> ? 'i' : 'r';
}

template <class AnyMember, class... A>
void bind(AnyMember &m, ZelStatus (*function)(A...)) {
    m.function = reinterpret_cast<Member::Function>(function);
    m.invoke = [](Member::Function erased, const Slot *slots) -> int {
        const auto typed = reinterpret_cast<ZelStatus (*)(A...)>(erased);
        return [&]<std::size_t... I>(std::index_sequence<I...>) {
            return typed(argument<A>(slots[I])...);
        }
        (std::index_sequence_for<A...>{});
    };
}

// A single operand of an _L member keeps the standard description; so does a constant array of a
// _P member.
char description_of(const Operand &operand, char of_member) {
    if (among({&operand.letter, 1}, "i o b"))
        return 'S';
    const bool standard = of_member == 'L' ? !operand.array : operand.letter == 'c';
    return standard ? 'S' : of_member;
}

void add_operand(Member &m, const std::string &name, const std::string &kind) {
    Operand operand{name, kind[0], kind.size() == 2 && kind[1] == 'a', name.starts_with("dst"), 0};
    if (among(kind, "index cindex out buffer")) {
        operand.letter = kind == "buffer" ? 'b' : kind == "out" ? 'o' : 'i';
        operand.array = kind != "buffer" && !m.operands.empty() && m.operands.front().array;
        operand.destination = kind != "cindex";
    }
    if (kind == "value")
        operand.letter = 'c', operand.array = false;
    operand.description =
        description_of(operand, operand.destination ? m.description.back() : m.description[0]);
    const int index = static_cast<int>(m.operands.size());
    m.operands.push_back(operand);

    const auto add = [&](char group, int axis = 0) {
        m.parameters.push_back({group, index, axis, name});
    };
    const char letter = operand.letter, description = operand.description;
    if (letter == 'c' && !operand.array && !operand.destination)
        return add('-');
    add('p');
    if (description != 'S')
        add('o');
    if (operand.array && !among({&letter, 1}, "i o") && description != 'L')
        add('s', 0);
    if (among({&letter, 1}, "m t") && description != 'P')
        add('s', 1);
    if (among({&letter, 1}, "m t v") && description != 'P')
        add('s', 2);
}

template <class... A>
Member make(const char *name, const char *family, const char *kinds, bool is_float,
            const char *description, const char *arguments, ZelStatus (*function)(A...)) {
    Member m{name, family, kinds, description, is_float, {}, {}, {}, {}, {}};
    m.signature = {letter_of<A>()...};
    bind(m, function);
    std::istringstream words(arguments);
    for (std::string word; words >> word;) {
        const auto colon = word.find(':');
        if (colon != std::string::npos)
            add_operand(m, word.substr(0, colon), word.substr(colon + 1));
        else
            m.parameters.push_back({word == "count" ? 'c' : 'z', -1, 0, word});
    }
    std::string expected;
    for (const Parameter &p : m.parameters) {
        const bool table = p.group == 'p' && m.operands[std::size_t(p.operand)].description != 'S';
        expected += p.group == '-' ? 'r' : p.group != 'p' ? 'i' : table ? 't' : 'p';
    }
    if (expected != m.signature)
        throw std::logic_error(m.name + ": table says " + expected + ", prototype " + m.signature);
    return m;
}

int floats_of(const std::string &operation, const std::string &kind, const std::string &name) {
    const int vector = kind[0] == 'v' ? kind[1] - '0' : kind.size() > 3 ? kind[3] - '0' : 0;
    if (among(name, "pEye pAt pUp pAxis"))
        return 3;
    if (among(name, "pDet pResult") ||
        (name == "pDst" &&
         (among(operation, "LenSqr Len DotProduct") || operation + kind == "CrossProductv2")))
        return 1;
    if (kind[0] == 'm' && kind[1] == '4' && vector != 0 && !name.starts_with("pMat"))
        return name == "pDst" && operation == "AffineTransform" ? 4 : vector;
    return kind == "v3m4" || kind[0] == 'm' ? 16 : vector;
}

template <class... A>
FixedMember make_fixed(const char *name, const char *operation, const char *kind,
                       const char *arguments, ZelStatus (*function)(A...)) {
    FixedMember m{name, operation, kind, {}, {}, {}};
    bind(m, function);
    const std::string sorts = {letter_of<A>()...};
    std::istringstream words(arguments);
    for (std::string word; words >> word;) {
        const std::string own = word.substr(0, word.find(':'));
        const char sort = sorts.at(m.parameters.size());
        m.parameters.push_back({own, sort, sort == 'p' ? floats_of(operation, kind, own) : 0});
    }
    if (sorts.size() != m.parameters.size())
        throw std::logic_error(m.name + ": the table has another number of arguments");
    return m;
}

// Names the member in whose call the process dies, then lets the earlier handler have the signal.
std::atomic<const char *> current{""};
struct sigaction earlier;

void name_the_call(int) {
    const char *name = current;
    for (const char *text : {"\nsegmentation fault in ", name, "\n"})
        static_cast<void>(!write(STDERR_FILENO, text, std::char_traits<char>::length(text)));
    sigaction(SIGSEGV, &earlier, nullptr);
}

} // namespace

bool Member::is_square() const {
    return std::any_of(parameters.begin(), parameters.end(),
                       [](const Parameter &p) { return p.name == "widthHeight"; });
}

int Member::count_parameter() const {
    const auto count = std::find_if(parameters.begin(), parameters.end(),
                                    [](const Parameter &p) { return p.group == 'c'; });
    return count == parameters.end() ? -1 : static_cast<int>(count - parameters.begin());
}

int Member::call(const std::vector<Slot> &slots) const {
    static const bool installed = [] {
        struct sigaction action = {};
        action.sa_handler = name_the_call;
        return sigaction(SIGSEGV, &action, &earlier) == 0;
    }();
    static_cast<void>(installed);
    current = name.c_str();
    return invoke(function, slots.data());
}

const std::vector<Member> &members() {
#define ZELM_FIXED_MEMBER(...)
#define ZELM_MEMBER(name, family, kinds, type, description, arguments)                             \
    make(#name, #family, #kinds, std::is_same_v<type, float>, #description, arguments, &name),
    static const std::vector<Member> all = {
#include "members.inc"
    };
#undef ZELM_MEMBER
#undef ZELM_FIXED_MEMBER
    return all;
}

const std::vector<FixedMember> &fixed_members() {
#define ZELM_MEMBER(...)
#define ZELM_FIXED_MEMBER(name, operation, kind, arguments)                                        \
    make_fixed(#name, #operation, #kind, arguments, &name),
    static const std::vector<FixedMember> all = {
#include "members.inc"
    };
#undef ZELM_MEMBER
#undef ZELM_FIXED_MEMBER
    return all;
}

const Member &member(std::string_view name) {
    for (const Member &m : members())
        if (m.name == name)
            return m;
    throw std::logic_error("no member " + std::string(name));
}

std::vector<const Member *> family(std::string_view names, std::size_t expected) {
    return those(members(), expected, [&](const Member &m) { return among(m.family, names); });
}

bool among(std::string_view word, std::string_view list) {
    std::istringstream words{std::string(list)};
    for (std::string each; words >> each;)
        if (each == word)
            return true;
    return false;
}

} // namespace zelm_test
