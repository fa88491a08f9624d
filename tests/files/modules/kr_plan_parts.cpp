// A library that the plan needs.
extern "C" int KrTestPartCount() { return 3; }
