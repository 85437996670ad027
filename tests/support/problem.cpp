#include "problem.hpp"

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>
#include <map>
#include <random>
#include <sstream>
#include <stdexcept>
#include <sys/mman.h>
#include <unistd.h>

namespace zelm_test {
namespace {

std::size_t index(std::ptrdiff_t n) { return static_cast<std::size_t>(n); }

std::size_t page() {
    static const auto size = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    return size;
}

std::byte *map(std::size_t size) {
    constexpr int flags = MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE;
    void *at = mmap(nullptr, size, PROT_NONE, flags, -1, 0);
    if (at == MAP_FAILED)
        throw std::bad_alloc();
    return static_cast<std::byte *>(at);
}

void make_accessible(std::byte *begin, std::size_t size) {
    if (mprotect(begin, size, PROT_READ | PROT_WRITE) != 0)
        throw std::bad_alloc();
    std::memset(begin, 0xFF, size);
}

constexpr std::size_t GiB = std::size_t{1} << 30;

} // namespace

GuardedBytes::GuardedBytes(std::size_t size, Edge edge) {
    const std::size_t used = size + (edge == Edge::odd);
    size_ = (used + page() - 1) / page() * page();
    begin_ = map(size_ + 2 * page()) + page();
    if (size_ < GiB)
        make_accessible(begin_, size_);
    data_ = edge == Edge::first ? begin_ : begin_ + size_ - used;
}

GuardedBytes::~GuardedBytes() { munmap(begin_ - page(), size_ + 2 * page()); }

void GuardedBytes::open(std::byte *at, int bytes) {
    std::byte *const first = at - index(at - begin_) % page();
    for (std::byte *each = first; size_ >= GiB && each < at + bytes; each += page())
        if (opened_.insert(each).second)
            make_accessible(each, page());
}

std::vector<GuardedBytes::Part> GuardedBytes::parts() const {
    if (size_ < GiB)
        return {{begin_, size_}};
    std::vector<Part> all;
    for (std::byte *each : opened_)
        if (!all.empty() && all.back().data() + all.back().size() == each)
            all.back() = {all.back().data(), all.back().size() + page()};
        else
            all.emplace_back(each, page());
    return all;
}

void *inaccessible() {
    static void *const at = map(page());
    return at;
}

Placed::Placed(const Operand &operand, int element, bool is_float, const Sizes &sizes, int rows,
               int columns, const Placement &placement)
    : letter_(operand.letter),
      description_(operand.description),
      transposed_(operand.letter == 't'),
      is_float_(is_float),
      element_(element),
      objects_(operand.array ? sizes.count : 1),
      rows_(transposed_ ? columns : rows),
      columns_(transposed_ ? rows : columns) {
    const bool dense = among({&letter_, 1}, "i o b");
    const Shape &shape = shapes[dense ? packed : placement.shape];
    std::ptrdiff_t step = element_, extent = element_;
    for (std::size_t k = 0; k < 3; ++k) {
        const std::size_t axis = std::string_view("nrc").find(shape.axes[k]);
        const int length = std::array{objects_, rows_, columns_}[axis];
        if (shape.gaps[k] == far) { // a stride has 31 bits, a table says any distance
            const bool by_stride = description_ == 'S' || (description_ == 'P') == (axis == 0);
            step = std::ptrdiff_t{9 * GiB} / std::max(length - 1, 3) / 8 * 8;
            step = by_stride ? std::min(step, std::ptrdiff_t{2 * GiB - 8}) : step;
        } else
            step = shape.gaps[k] < 0 ? element_ : step + shape.gaps[k] * element_;
        stride_[axis] = step;
        extent += (length - 1) * step;
        step *= length;
    }
    const int entries = description_ == 'P' ? rows_ * columns_ : description_ == 'L' ? objects_ : 1;
    for (int k = 0; k < entries; ++k)
        origins_.push_back(description_ == 'P'
                               ? k / columns_ * stride_[1] + k % columns_ * stride_[2]
                               : k * stride_[0]);
    if (placement.order == Order::reversed)
        std::reverse(origins_.begin(), origins_.end());
    if (placement.order == Order::shuffled)
        std::shuffle(origins_.begin(), origins_.end(), std::minstd_rand(1));
    // Row numbers are int objects of the caller's and so aligned.
    const bool aligned = letter_ == 'i' && placement.edge == Edge::odd;
    data_ = std::make_shared<GuardedBytes>(index(extent), aligned ? Edge::last : placement.edge);
    for_each_element([&](int n, int i, int j) { data_->open(address(n, i, j), element_); });
    describe(operand, placement);
}

Placed::Placed(const Operand &operand, const Placed &other, const Placement &placement)
    : Placed(other) {
    if (other.transposed_) {
        std::swap(rows_, columns_);
        std::swap(stride_[1], stride_[2]);
        if (description_ == 'P')
            for (int k = 0; k < rows_ * columns_; ++k)
                origins_[index(k)] = other.origins_[index(k % columns_ * rows_ + k / columns_)];
    }
    transposed_ = false;
    describe(operand, placement);
}

void Placed::describe(const Operand &operand, const Placement &placement) {
    letter_ = operand.letter;
    if (description_ == 'S')
        return;
    shift_ = placement.shift * element_;
    table_ = std::make_shared<GuardedBytes>(origins_.size() * sizeof(void *), Edge::last);
    for (std::size_t k = 0; k < origins_.size(); ++k) {
        const auto entry = reinterpret_cast<std::uintptr_t>(data_->data() + origins_[k]) -
                           static_cast<std::uintptr_t>(shift_);
        std::memcpy(table_->data() + k * sizeof entry, &entry, sizeof entry);
    }
}

std::byte *Placed::address(int n, int i, int j) const {
    if (transposed_)
        std::swap(i, j);
    if (objects_ == 1)
        n = 0;
    std::byte *const base = data_->data();
    if (description_ == 'P')
        return base + origins_[index(i * columns_ + j)] + n * stride_[0];
    return base + (description_ == 'L' ? origins_[index(n)] : n * stride_[0]) + i * stride_[1] +
           j * stride_[2];
}

std::size_t Placed::place(int n, int i, int j) const {
    return index((address(n, i, j) - data_->data()) / element_);
}

double Placed::get(int n, int i, int j) const {
    const std::uint64_t raw = bits(n, i, j);
    if (letter_ == 'i')
        return static_cast<std::int32_t>(raw);
    return is_float_ ? static_cast<double>(std::bit_cast<float>(static_cast<std::uint32_t>(raw)))
                     : std::bit_cast<double>(raw);
}

void Placed::put(int n, int i, int j, double value) {
    const auto store = [&](auto typed) { std::memcpy(address(n, i, j), &typed, sizeof typed); };
    if (letter_ == 'i')
        store(static_cast<std::int32_t>(value));
    else if (is_float_)
        store(static_cast<float>(value));
    else
        store(value);
}

std::uint64_t Placed::bits(int n, int i, int j) const {
    std::uint64_t raw = 0;
    std::memcpy(&raw, address(n, i, j), index(element_));
    return raw;
}

Slot Placed::slot(const Parameter &parameter) const {
    if (parameter.group == 'p')
        return {table_ ? table_->data() : data_->data()};
    if (parameter.group == '-')
        return {nullptr, 0, get(0, 0, 0)};
    return {nullptr,
            parameter.group == 'o' ? shift_ : static_cast<int>(stride_[index(parameter.axis)])};
}

Problem::Problem(const Member &of, const Sizes &given, const std::vector<Placement> &placements,
                 std::optional<int> in_place)
    : member(of), sizes(given), placements_(placements) {
    if (member.is_square())
        sizes.height = sizes.width;
    const auto has = [&](const std::string &name) {
        return std::any_of(member.parameters.begin(), member.parameters.end(),
                           [&](const Parameter &p) { return p.name == name; });
    };
    const bool product = has("src1Width"), least_squares = member.family == "QRBackSubst";
    for (std::size_t k = 0; k < member.operands.size(); ++k) {
        const Operand &operand = member.operands[k];
        int rows = sizes.height, columns = sizes.width;
        if (has(operand.name + "Width"))
            (k == 0 ? columns : rows) = sizes.inner;
        if (operand.letter != 'm' && operand.letter != 't')
            rows = 1;
        const bool values = operand.letter == 'o' && member.family.starts_with("Eigen");
        if (operand.letter == 'c' || (operand.letter == 'o' && !values))
            columns = 1;
        if (operand.letter == 'v' && least_squares && !operand.destination)
            columns = sizes.height;
        if (member.family == "AffineTransform3DH")
            columns = operand.letter == 'v' ? 3 : (rows = 4);
        if (operand.letter == 'b')
            columns = sizes.buffer > 0                  ? sizes.buffer
                      : member.family.starts_with("QR") ? sizes.height
                                                        : buffer_elements(member, sizes.width);
        if (operand.letter == 'v' && product)
            columns = operand.destination ? sizes.height : sizes.inner;
        if (operand.letter == 'v' && member.family == "Gaxpy")
            columns = operand.name == "src2" ? sizes.width : sizes.height;
        if (operand.letter == 'o' && member.family == "Extract")
            rows = has("height") ? sizes.height : 1, columns = sizes.width;
        if (operand.destination && member.family == "Transpose")
            std::swap(rows, columns);
        if (member.family == "CrossProduct")
            columns = 3;
        const bool index_array = operand.letter == 'i';
        if (operand.destination && in_place && !among({&operand.letter, 1}, "i o b")) {
            operands.emplace_back(operand, operands[index(*in_place)], placements[k]);
            in_place.reset();
        } else
            operands.emplace_back(operand, index_array ? 4 : member.element(),
                                  member.is_float && !index_array, sizes, rows, columns,
                                  placements[k]);
    }
    for (const Parameter &p : member.parameters)
        slots.push_back(p.operand >= 0 ? operands[index(p.operand)].slot(p)
                                       : Slot{nullptr, size_of(p.name)});
}

Placed &Problem::destination() {
    std::size_t k = operands.size() - 1;
    while (!member.operands[k].destination)
        --k;
    return operands[k];
}

int Problem::size_of(const std::string &parameter) const {
    if (parameter == "count")
        return sizes.count;
    if (parameter == "height")
        return sizes.height;
    for (std::size_t k = 0; k < operands.size(); ++k) {
        const std::string &name = member.operands[k].name;
        if (parameter == name + "Height")
            return operands[k].rows_;
        if (parameter == name + "Width" || parameter == name + "Len")
            return operands[k].columns_;
    }
    return among(parameter, "width len widthHeight")
               ? sizes.width
               : throw std::logic_error(member.name + ": no size for " + parameter);
}

void Problem::fill(unsigned seed, bool special) {
    using Limit = std::numeric_limits<double>;
    using Single = std::numeric_limits<float>;
    const double tiny = member.is_float ? Single::denorm_min() : Limit::denorm_min();
    const double huge = member.is_float ? Single::max() : Limit::max();
    const double infinite = Limit::infinity(), nan = Limit::quiet_NaN();
    const std::array values{nan, infinite, -infinite, 0.0, -0.0, 3 * tiny, -tiny, huge, -huge};
    std::mt19937_64 random(seed);
    for (std::size_t k = 0; k < operands.size(); ++k) {
        Placed &operand = operands[k];
        const bool definite = member.family == "CholeskyDecomp" && !special;
        if (!member.operands[k].destination)
            operand.for_each_element([&](int n, int i, int j) {
                const double uniform = static_cast<double>(random() >> 11) * 0x1p-52 - 1;
                const bool pick = special && random() % 4 == 0;
                operand.put(n, i, j,
                            operand.letter_ == 'i' ? j
                            : pick                 ? values[random() % values.size()]
                            : definite && i == j   ? uniform + sizes.width + 1
                                                   : uniform);
            });
    }
}

void Problem::clear_destinations() {
    for (std::size_t k = 0; k < operands.size(); ++k)
        if (member.operands[k].destination)
            for (const GuardedBytes::Part &part : operands[k].data_->parts())
                std::memset(part.data(), 0xFF, part.size());
}

std::vector<GuardedBytes::Part> Problem::memory(bool with_tables) const {
    std::vector<GuardedBytes::Part> all;
    for (const Placed &operand : operands)
        for (const GuardedBytes *bytes :
             {operand.data_.get(), with_tables ? operand.table_.get() : nullptr})
            for (const GuardedBytes::Part &part :
                 bytes ? bytes->parts() : std::vector<GuardedBytes::Part>{})
                all.push_back(part);
    return all;
}

int Problem::run() {
    for (std::size_t k = 0; k < slots.size(); ++k)
        if (const Parameter &p = member.parameters[k]; p.group == '-')
            slots[k] = operands[index(p.operand)].slot(p);
    before_.clear();
    for (const GuardedBytes::Part &part : memory())
        before_.emplace_back(part.begin(), part.end());
    return member.call(slots);
}

std::string Problem::disturbed() {
    const auto all = memory();
    std::map<const std::byte *, std::size_t> part_at;
    for (std::size_t m = 0; m < all.size(); ++m)
        part_at[all[m].data()] = m; // of memory that two operands share, the last one
    for (std::size_t k = 0; k < operands.size(); ++k)
        if (member.operands[k].destination)
            operands[k].for_each_element([&](int n, int i, int j) {
                const std::byte *const at = operands[k].address(n, i, j);
                const auto [begin, m] = *std::prev(part_at.upper_bound(at));
                std::copy_n(at, operands[k].element_, &before_[m][index(at - begin)]);
            });
    for (const auto &[begin, m] : part_at) {
        const auto [was, at] = std::mismatch(before_[m].begin(), before_[m].end(), begin);
        if (was != before_[m].end())
            return "byte " + std::to_string(at - begin) + " of memory " + std::to_string(m) +
                   " has changed";
    }
    return "";
}

std::vector<std::byte> Problem::image() const {
    std::vector<std::byte> bytes;
    for (std::size_t k = 0; k < operands.size(); ++k) {
        if (member.operands[k].destination && member.operands[k].letter != 'b')
            for (const GuardedBytes::Part &part : operands[k].data_->parts())
                bytes.insert(bytes.end(), part.begin(), part.end());
    }
    return bytes;
}

std::string Problem::describe() const {
    std::ostringstream text;
    text << member.name << " height " << sizes.height << " width " << sizes.width << " inner "
         << sizes.inner << " count " << sizes.count;
    for (std::size_t k = 0; k < operands.size(); ++k) {
        const Placement &p = placements_[k];
        text << ", " << member.operands[k].name << " " << shapes[p.shape].name << " edge "
             << static_cast<int>(p.edge) << " order " << static_cast<int>(p.order) << " shift "
             << p.shift;
    }
    return text.str();
}

std::vector<Placement> mixed(const Member &member, int step) {
    std::vector<Placement> placements;
    constexpr int count = overlapping;
    for (int k = 0; k < static_cast<int>(member.operands.size()); ++k)
        placements.push_back({(step + k * (step / count)) % count,
                              static_cast<Edge>((step + k) % 3),
                              static_cast<Order>((step / 2 + k) % 3), (step + k) % 4});
    return placements;
}

std::vector<Placement> all_in(const Member &member, int shape) {
    return std::vector<Placement>(member.operands.size(), Placement{shape});
}

int buffer_elements(const Member &member, int n) {
    if (member.family.ends_with("Sym"))
        return n * n;
    if (!member.family.starts_with("Eigen"))
        return n * (n + 1);
    return n * ((member.family == "EigenValues" ? n : 3 * n) + 5);
}

Sizes parallel_sizes(const Member &member) {
    const bool tall = member.family.starts_with("QR");
    const int count =
        among(member.family, "DotProduct CrossProduct Trace Gaxpy") || member.kinds == "cva" ? 2500
        : member.family == "Det"                                                             ? 5000
                                                                                             : 500;
    return {tall ? 9 : 3, member.is_square() || tall ? 4 : 9, 5, count};
}

} // namespace zelm_test
