#include <zelcore.h>

int main(void) { return ownGetNumThreads() < 1; }
