// Controls of the stand-in companion library.
#pragma once

#include <vector>

// From now on ownGetNumThreads gives these answers in turn, then the last one for good; questions
// are counted anew.
__attribute__((visibility("default"))) void stub_core_answers(const std::vector<int> &answers);
__attribute__((visibility("default"))) int stub_core_questions();
// Not 0: the next question about threads ends the process with this code.
__attribute__((visibility("default"))) void stub_core_exit(int code);
// The answer of ownGetFeature to this one code; it is 0 for all others.
__attribute__((visibility("default"))) void stub_core_feature(int code, int answer);
// The size of the largest cache; questions about it are counted anew.
__attribute__((visibility("default"))) void stub_core_cache(int bytes);
__attribute__((visibility("default"))) int stub_core_cache_questions();
