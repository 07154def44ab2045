#include <string>

#ifdef QEL_BENCH_QT
#include <QString>
#include <QUrl>
#endif
#ifdef QEL_BENCH_CURL
#include <curl/curl.h>
#endif
#ifdef QEL_BENCH_URIPARSER
#include <uriparser/Uri.h>
#endif

#include "compare.h"
#include "url.h"
#include "utf8.h"

namespace {

constexpr wchar_t kAddress[] = L"https://example.com:8443/orders/2024/list.html?from=7&to=12#top";

// 1 KB of what users search for: Latin, Arabic, digits and signs.
const CString& Text() {
  static const CString s_Text = [] {
    std::wstring text;
    while (text.size() < 1024)
      text += L"\u0627\u0633\u062A\u0644\u0645\u0646\u0627 received & thanks, 1,250 <50%> ";
    text.resize(1024);
    return CString(text);
  }();
  return s_Text;
}
const std::string& Utf8Text() {
  static const std::string s_Text = Qel::ToUtf8(Text().View());
  return s_Text;
}
// The same for all who decode: as query strings have it, which leaves nothing that one of them would not take.
const CString& EncodedText() {
  static const CString s_Text = CURLEncode::Encode(Text(), 1);
  return s_Text;
}
const std::string& EncodedBytes() {
  static const std::string s_Text = Qel::ToUtf8(EncodedText().View());
  return s_Text;
}

void Split(benchmark::State& state) {
  for (auto _ : state) {
    const UrlComponents url(kAddress);
    benchmark::DoNotOptimize(url.Port());
  }
}
void Encode(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(CURLEncode::Encode(Text(), 1));
}
void Decode(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(CURLEncode::Decode(EncodedText()));
}

#ifdef QEL_BENCH_QT
void QtSplit(benchmark::State& state) {
  const QString text = QString::fromWCharArray(kAddress);
  for (auto _ : state) {
    const QUrl url(text, QUrl::StrictMode);
    benchmark::DoNotOptimize(url.port() + url.host().size() + url.path().size() + url.query().size());
  }
}
void QtEncode(benchmark::State& state) {
  const QString text = QString::fromStdString(Utf8Text());
  for (auto _ : state) benchmark::DoNotOptimize(QUrl::toPercentEncoding(text));
}
void QtDecode(benchmark::State& state) {
  const QByteArray bytes = QByteArray::fromStdString(EncodedBytes());
  for (auto _ : state) benchmark::DoNotOptimize(QUrl::fromPercentEncoding(bytes));
}
#else
constexpr Body QtSplit = nullptr, QtEncode = nullptr, QtDecode = nullptr;
#endif

#ifdef QEL_BENCH_CURL
void CurlSplit(benchmark::State& state) {
  const std::string text = Qel::ToUtf8(kAddress);
  for (auto _ : state) {
    CURLU* const url = curl_url();
    curl_url_set(url, CURLUPART_URL, text.c_str(), 0);
    for (const CURLUPart part : {CURLUPART_HOST, CURLUPART_PORT, CURLUPART_PATH, CURLUPART_QUERY}) {
      char* value = nullptr;
      curl_url_get(url, part, &value, 0);
      benchmark::DoNotOptimize(value);
      curl_free(value);
    }
    curl_url_cleanup(url);
  }
}
void CurlEncode(benchmark::State& state) {
  const std::string& text = Utf8Text();
  for (auto _ : state) {
    char* const encoded = curl_easy_escape(nullptr, text.data(), static_cast<int>(text.size()));
    benchmark::DoNotOptimize(encoded);
    curl_free(encoded);
  }
}
void CurlDecode(benchmark::State& state) {
  const std::string& text = EncodedBytes();
  for (auto _ : state) {
    int length = 0;
    char* const decoded = curl_easy_unescape(nullptr, text.data(), static_cast<int>(text.size()), &length);
    benchmark::DoNotOptimize(decoded);
    curl_free(decoded);
  }
}
#else
constexpr Body CurlSplit = nullptr, CurlEncode = nullptr, CurlDecode = nullptr;
#endif

#ifdef QEL_BENCH_URIPARSER
void UriSplit(benchmark::State& state) {
  for (auto _ : state) {
    UriUriW url;
    const wchar_t* error = nullptr;
    benchmark::DoNotOptimize(uriParseSingleUriW(&url, kAddress, &error));
    benchmark::DoNotOptimize(url);
    uriFreeUriMembersW(&url);
  }
}
void UriDecode(benchmark::State& state) {
  for (auto _ : state) {
    std::wstring text(EncodedText().View());
    benchmark::DoNotOptimize(uriUnescapeInPlaceW(text.data()));
    benchmark::DoNotOptimize(text);
  }
}
#else
constexpr Body UriSplit = nullptr, UriDecode = nullptr;
#endif

const bool kAdded = Compare("URL split", Split,
                            {{"uriparser", AtMost(1), UriSplit},
                             {"curl", AtMost(1), CurlSplit},
                             {"QUrl", AtLeast(3), QtSplit}}) &&
                    Compare("URL encode 1 KB", Encode,
                            {{"QUrl::toPercentEncoding", AtLeast(2.2), QtEncode},
                             {"curl_easy_escape", AtLeast(6), CurlEncode}}) &&
                    Compare("URL decode, 1 KB encoded", Decode,
                            {{"QUrl::fromPercentEncoding", AtLeast(1.8), QtDecode},
                             {"curl_easy_unescape", AtLeast(1.8), CurlDecode},
                             {"uriUnescapeInPlaceW", AtLeast(1.8), UriDecode}});

}  // namespace
