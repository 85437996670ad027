// The peer modules that were built, and what they offer for a work.
#ifndef BENCH_PEERS_HPP
#define BENCH_PEERS_HPP

#include <string>
#include <vector>

#include "harness.hpp"
#include "problem.hpp"

namespace zelm::bench {

struct Peer {
    const BenchPeer *entry;
    Build build;
};

class Peers {
public:
    // Loads what is found in the folder. What is not is named in missing().
    explicit Peers(const std::string &folder);

    const std::vector<std::string> &missing() const { return missing_; }

    std::vector<Peer> find(BenchWork work, ElementType type, Shape shape, BenchMemory memory) const;

private:
    void load(const std::string &folder, const std::string &name, Build build);

    std::vector<Peer> peers_;
    std::vector<std::string> missing_;
};

} // namespace zelm::bench

#endif
