// A module that calls a function which is nowhere.
extern "C" int KrTestNowhere();

extern "C" int KrTestIncomplete() { return KrTestNowhere(); }
