/* Loads the library, makes a call that goes parallel and unloads the library, a thousand times:
 * reload_test LIBRARY COMPANION. Workers of the OpenMP runtime wait for work when the call has
 * returned; their code must stay. So must the number of threads, which is set before. The program
 * itself links neither of the libraries nor an OpenMP runtime. */
#include <dirent.h>
#include <dlfcn.h>
#include <stdio.h>
#include <stdlib.h>

#include <zelcore.h>
#include <zelm.h>

enum { count = 1000, order = 4, row = order * sizeof(float), matrix = order * row };
static float a[count][order][order], b[order][order], sum[count][order][order];

static void fail(const char *what) {
    fprintf(stderr, "reload_test: %s\n", what);
    exit(1);
}

static int threads(void) {
    int n = -2; /* . and .. */
    DIR *tasks = opendir("/proc/self/task");
    if (tasks == NULL)
        fail("no /proc/self/task");
    while (readdir(tasks) != NULL)
        ++n;
    closedir(tasks);
    return n;
}

/* The function of that name in a library that has now been loaded once more. */
static void *loaded(void **library, const char *path, const char *name) {
    void *function = NULL;
    *library = dlopen(path, RTLD_NOW | RTLD_LOCAL);
    if (*library != NULL)
        function = dlsym(*library, name);
    if (function == NULL)
        fail(dlerror());
    return function;
}

int main(int argc, char **argv) {
    const int before = threads();
    int round, team = 0;
    void *library;
    __typeof__(&zelmAdd_mam_32f) add;
    __typeof__(&zelSetNumThreads) set_threads;
    if (argc != 3)
        fail("which libraries?");
    *(void **)&set_threads = loaded(&library, argv[2], "zelSetNumThreads");
    if (set_threads(3) != 0 || dlclose(library) != 0)
        fail("the number of threads cannot be set");
    b[0][0] = 1;
    for (round = 0; round < 1000; ++round) {
        *(void **)&add = loaded(&library, argv[1], "zelmAdd_mam_32f");
        a[count - 1][0][0] = (float)round;
        if (add(&a[0][0][0], matrix, row, sizeof(float), &b[0][0], row, sizeof(float),
                &sum[0][0][0], matrix, row, sizeof(float), order, order, count) != zelStatusOk ||
            sum[count - 1][0][0] != (float)round + 1)
            fail("a wrong sum");
        if (dlclose(library) != 0)
            fail(dlerror());
        if (round == 0)
            team = threads() - before + 1;
    }
    if (team != 3)
        fail("the first call had another number of threads than was set");
    if (threads() - before + 1 != team)
        fail("each time the library is loaded more threads are left behind");
    return 0;
}
