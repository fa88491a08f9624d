// Loads and frees the client that it is given; 0 where the library was ready for it.
#include <dlfcn.h>

int main(int count, char ** arguments)
{
    void * const client = count == 2 ? dlopen(arguments[1], RTLD_NOW) : nullptr;
    if (!client)
        return 2;
    auto const isReady = reinterpret_cast<int (*)()>(dlsym(client, "KrTestIsReady"));
    bool const wasReady = isReady && isReady();
    return dlclose(client) == 0 && wasReady ? 0 : 1;
}
