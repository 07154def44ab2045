// What a server sent, as text: its header lines, and a body that comes in pieces. Neither needs a connection.
#ifndef QEL_HTTP_TEXT_H
#define QEL_HTTP_TEXT_H

#include <cstddef>
#include <string>
#include <string_view>

#include "list.h"
#include "qel_cstring.h"

// Appends what stands before, between and behind the line feeds of `block` to `lines`, unless it is empty. Carriage
// returns stay.
void SplitHeaderLines(std::wstring_view block, Qel::List<CString>& lines);

// Kept: each piece is read by itself, up to its first zero byte. Who relies on it is told in httpclient.h.
class HttpContent {
 public:
  // Room for a body of so many bytes, as the server announces it. That may be a lie, so there is a bound; beyond it
  // the text grows as it comes.
  void Reserve(std::size_t bytes);
  void Append(const char* piece, std::size_t size);
  std::wstring& Text() { return m_Text; }

 private:
  std::wstring m_Text;
};

#endif  // QEL_HTTP_TEXT_H
