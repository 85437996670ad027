// A stand-in for the companion library: it says what the test wants and counts the questions.

#include "stub_core.hpp"

#include <algorithm>
#include <unistd.h>
#include <zelcore.h>

namespace {
std::vector<int> answers = {1};
std::size_t questions = 0;
int exit_code = 0, feature_code = 0, feature_answer = 0;
int cache_bytes = 1 << 20, cache_questions = 0;
} // namespace

void stub_core_answers(const std::vector<int> &given) {
    answers = given;
    questions = 0;
}
int stub_core_questions() { return static_cast<int>(questions); }
void stub_core_exit(int code) { exit_code = code; }
void stub_core_feature(int code, int answer) {
    feature_code = code;
    feature_answer = answer;
}

void stub_core_cache(int bytes) {
    cache_bytes = bytes;
    cache_questions = 0;
}
int stub_core_cache_questions() { return cache_questions; }

int ownGetNumThreads() {
    if (exit_code != 0)
        _exit(exit_code);
    return answers[std::min(questions++, answers.size() - 1)];
}
int zelSetNumThreads(int) { return 0; }
int ownGetFeature(int code) { return code == feature_code ? feature_answer : 0; }
int zelGetMaxCacheSizeB(int *size) {
    ++cache_questions;
    return *size = cache_bytes, 0;
}
int zelGetCpuFeatures(ZelCpuFeatures *mask) { return *mask = 0, 0; }
ZelCpuFeatures zelGetEnabledCpuFeatures() { return 0; }
