// A module that needs a library which needs another one, without strings.
extern "C" int KrTestMiddle();

extern "C" int KrTestRoot() { return 100 + KrTestMiddle(); }
