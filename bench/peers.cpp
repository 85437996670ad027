#include "peers.hpp"

#include <cstdlib>
#include <dlfcn.h>

namespace zelm::bench {
namespace {
constexpr const char *modules[] = {"loop",         "loop_vectors",  "eigen", "eigen_factors",
                                   "eigen_values", "eigen_vectors", "glm",   "cglm",
                                   "lapack",       "xsmm"};
}

Peers::Peers(const std::string &folder) {
    setenv("OPENBLAS_NUM_THREADS", "1", 1);
    // Each copy of OpenBLAS chooses its kernels when it is loaded.
    setenv("OPENBLAS_CORETYPE", "Nehalem", 1);
    for (const char *name : modules)
        load(folder, name, Build::sse);
    unsetenv("OPENBLAS_CORETYPE");
    for (const char *name : modules)
        load(folder, name, Build::machine);
}

void Peers::load(const std::string &folder, const std::string &name, Build build) {
    const std::string module = name + (build == Build::sse ? "_sse" : "_machine");
    void *handle = dlopen((folder + "/peer_" + module + ".so").c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!handle) {
        missing_.push_back(module + " (" + dlerror() + ")");
        return;
    }
    using List = BenchPeerList (*)();
    const BenchPeerList list = reinterpret_cast<List>(dlsym(handle, "bench_peers"))();
    for (int i = 0; i < list.count; ++i)
        peers_.push_back({list.peers + i, list.peers[i].is_bound ? Build::reference : build});
}

std::vector<Peer> Peers::find(BenchWork work, ElementType type, Shape shape,
                              BenchMemory memory) const {
    const int size = type == ElementType::f32 ? 4 : 8;
    std::vector<Peer> found;
    for (const Peer &peer : peers_) {
        const BenchPeer &entry = *peer.entry;
        const bool suits_memory =
            entry.memory == memory || (entry.memory == bench_strided && memory != bench_packed);
        if (entry.work == work && entry.element_size == size && entry.rows == shape.rows &&
            entry.inner == shape.inner && entry.columns == shape.columns && suits_memory)
            found.push_back(peer);
    }
    return found;
}

} // namespace zelm::bench
