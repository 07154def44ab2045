// What libcurl's results are called on Windows.
#ifndef QEL_PLATFORM_LINUX_HTTP_STATUS_H
#define QEL_PLATFORM_LINUX_HTTP_STATUS_H

#include <curl/curl.h>

#include <string_view>

#include "platform/platform.h"

constexpr DWORD kHttpTimeout = 12002;
constexpr DWORD kHttpInternalError = 12004;
constexpr DWORD kHttpInvalidUrl = 12005;
constexpr DWORD kHttpCancelled = 12017;
constexpr DWORD kHttpIncorrectState = 12019;
constexpr DWORD kHttpConnectionError = 12030;
constexpr DWORD kHttpResendRequest = 12032;
constexpr DWORD kHttpHeaderNotFound = 12150;
constexpr DWORD kHttpInvalidAnswer = 12152;
constexpr DWORD kHttpInvalidHeader = 12153;
constexpr DWORD kHttpRedirectFailed = 12156;
constexpr DWORD kHttpSecureFailure = 12175;
constexpr DWORD kHttpHeadTooLarge = 12183;

// 0 for success. `message` is libcurl's own about the failure.
DWORD HttpStatus(CURLcode result, std::string_view message);

#endif  // QEL_PLATFORM_LINUX_HTTP_STATUS_H
