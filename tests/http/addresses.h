// Where the servers of this run are: servers.py says so in the file that the environment names.
#ifndef QEL_TESTS_HTTP_ADDRESSES_H
#define QEL_TESTS_HTTP_ADDRESSES_H

#include <string>

// The value of that name in the file, such as "http" (http://127.0.0.1:PORT) or "authority" (a path). A name that is
// not there ends the test program.
std::string ServerAddress(const std::string& name);

// The same with `path` behind it, as the client takes it.
std::wstring ServerUrl(const std::string& name, const std::string& path = "");

#endif  // QEL_TESTS_HTTP_ADDRESSES_H
