#include "curl_library.h"

#include <dlfcn.h>

namespace {

template <class Function>
bool Find(void* library, const char* name, Function& function) {
  function = reinterpret_cast<Function>(dlsym(library, name));
  return function != nullptr;
}

bool FindEasy(void* library, CurlLibrary& curl) {
  return Find(library, "curl_easy_init", curl.easyInit) &&
         Find(library, "curl_easy_cleanup", curl.easyCleanup) &&
         Find(library, "curl_easy_reset", curl.easyReset) &&
         Find(library, "curl_easy_setopt", curl.easySet) &&
         Find(library, "curl_easy_getinfo", curl.easyGet) && Find(library, "curl_easy_pause", curl.easyPause);
}

bool FindMulti(void* library, CurlLibrary& curl) {
  return Find(library, "curl_multi_init", curl.multiInit) &&
         Find(library, "curl_multi_cleanup", curl.multiCleanup) &&
         Find(library, "curl_multi_add_handle", curl.multiAdd) &&
         Find(library, "curl_multi_remove_handle", curl.multiRemove) &&
         Find(library, "curl_multi_perform", curl.multiPerform) &&
         Find(library, "curl_multi_poll", curl.multiPoll) &&
         Find(library, "curl_multi_wakeup", curl.multiWakeup) &&
         Find(library, "curl_multi_info_read", curl.multiRead);
}

bool FindOthers(void* library, CurlLibrary& curl) {
  return Find(library, "curl_global_init", curl.globalInit) && Find(library, "curl_free", curl.free) &&
         Find(library, "curl_slist_append", curl.listAppend) &&
         Find(library, "curl_slist_free_all", curl.listFree) &&
         Find(library, "curl_share_init", curl.shareInit) &&
         Find(library, "curl_share_cleanup", curl.shareCleanup) &&
         Find(library, "curl_share_setopt", curl.shareSet) && Find(library, "curl_url", curl.url) &&
         Find(library, "curl_url_cleanup", curl.urlCleanup) && Find(library, "curl_url_get", curl.urlGet) &&
         Find(library, "curl_url_set", curl.urlSet);
}

CurlLibrary s_Curl;

// Never closed: it has threads and tables of its own.
bool Load() {
  void* const library = dlopen("libcurl.so.4", RTLD_NOW | RTLD_LOCAL);
  return library && FindEasy(library, s_Curl) && FindMulti(library, s_Curl) && FindOthers(library, s_Curl) &&
         s_Curl.globalInit(CURL_GLOBAL_DEFAULT) == CURLE_OK;
}

}  // namespace

const CurlLibrary* LoadCurl() {
  static const bool s_Loaded = Load();
  return s_Loaded ? &s_Curl : nullptr;
}

const CurlLibrary& Curl() {
  return s_Curl;
}
