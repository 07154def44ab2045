// libcurl, which does the network's part of HTTP. It is looked for at the first request, so that a program that makes
// none neither loads it nor needs it.
#ifndef QEL_PLATFORM_LINUX_HTTP_CURL_LIBRARY_H
#define QEL_PLATFORM_LINUX_HTTP_CURL_LIBRARY_H

#include <curl/curl.h>

// Its functions, by their names without "curl_".
struct CurlLibrary {
  decltype(&curl_global_init) globalInit;
  decltype(&curl_free) free;
  decltype(&curl_slist_append) listAppend;
  decltype(&curl_slist_free_all) listFree;
  decltype(&curl_easy_init) easyInit;
  decltype(&curl_easy_cleanup) easyCleanup;
  decltype(&curl_easy_reset) easyReset;
  decltype(&curl_easy_setopt) easySet;
  decltype(&curl_easy_getinfo) easyGet;
  decltype(&curl_easy_pause) easyPause;
  decltype(&curl_multi_init) multiInit;
  decltype(&curl_multi_cleanup) multiCleanup;
  decltype(&curl_multi_add_handle) multiAdd;
  decltype(&curl_multi_remove_handle) multiRemove;
  decltype(&curl_multi_perform) multiPerform;
  decltype(&curl_multi_poll) multiPoll;
  decltype(&curl_multi_wakeup) multiWakeup;
  decltype(&curl_multi_info_read) multiRead;
  decltype(&curl_share_init) shareInit;
  decltype(&curl_share_cleanup) shareCleanup;
  decltype(&curl_share_setopt) shareSet;
  decltype(&curl_url) url;
  decltype(&curl_url_cleanup) urlCleanup;
  decltype(&curl_url_get) urlGet;
  decltype(&curl_url_set) urlSet;
};

// Null when the system has none, or one that is too old.
const CurlLibrary* LoadCurl();
// The one that LoadCurl gave, for those who hold something of it.
const CurlLibrary& Curl();

#endif  // QEL_PLATFORM_LINUX_HTTP_CURL_LIBRARY_H
