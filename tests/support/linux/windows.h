// The one macro of the real header that load_string_order.cpp is about.
#ifdef UNICODE
#define LoadString LoadStringW
#else
#define LoadString LoadStringA
#endif
