#include "http_progress.h"

#include <string>

#include "platform/platform.h"
#include "text.h"

namespace Cli {

namespace {

// "12.3"
std::string Megabytes(std::uint64_t bytes) {
  constexpr std::uint64_t kTenth = 100000;
  const std::uint64_t tenths = bytes / kTenth;
  return InUserDigits(std::to_string(tenths / 10) + "." + std::to_string(tenths % 10));
}

}  // namespace

HttpProgress::HttpProgress(std::uint64_t whole) : m_Whole(whole), m_OnTerminal(MessagesAreSeen()) {}

HttpProgress::~HttpProgress() {
  if (m_LineIsOpen) WriteMessage("\n");
}

void HttpProgress::Add(std::uint64_t bytes) {
  m_Received += bytes;
  const auto now = Clock::now();
  if (now < m_Next) return;
  Show();
  m_Next = m_OnTerminal ? now + std::chrono::seconds(1) : now + (now - m_Start);
}

void HttpProgress::Show() {
  const std::string received = Megabytes(m_Received);
  const std::string line = m_Whole != 0 ? Say(Text::HttpReceivedOf, {received, Megabytes(m_Whole)})
                                        : Say(Text::HttpReceived, {received});
  WriteMessage(m_OnTerminal ? "\r" + line : line + "\n");
  m_LineIsOpen = m_OnTerminal;
}

}  // namespace Cli
