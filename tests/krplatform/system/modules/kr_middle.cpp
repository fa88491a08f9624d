// A library that needs another one.
extern "C" int KrTestLeaf();

extern "C" int KrTestMiddle() { return 10 + KrTestLeaf(); }
