/* Uses both libraries: sets the number of threads for the calls that follow. */
#include <zelcore.h>
#include <zelm.h>

int main(void) {
    if (zelSetNumThreads(2) != 0 || ownGetNumThreads() != 2)
        return 1;
    return zelmGetLibVersion()->majorVersion != 7;
}
