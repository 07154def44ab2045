// What Wine's functions answered to the requests of tests/data/http.tsv, and what Windows is known to answer otherwise.
#ifndef QEL_TESTS_HTTP_REPLAY_H
#define QEL_TESTS_HTTP_REPLAY_H

#include <initializer_list>
#include <utility>
#include <vector>

// A server's port as it stands in the rows (":39181"), and its name among the addresses.
using RecordedServer = std::pair<const char*, const char*>;

// Repeats the rows whose id starts with one of `prefixes`.
void ReplayRows(const std::vector<RecordedServer>& servers, std::initializer_list<const char*> prefixes);

#endif  // QEL_TESTS_HTTP_REPLAY_H
