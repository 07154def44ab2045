#include "exchange.h"

#include <algorithm>
#include <cstring>

#include "status.h"

namespace {

// What is held of a body at most, and what of one that nobody wants is read to keep its connection.
constexpr std::size_t kMostHeld = 262144;
constexpr std::size_t kMostDropped = 65536;

// How many bytes at the end are the beginning of a character of UTF-8.
std::size_t UnfinishedTail(const BYTE* data, std::size_t size) {
  for (std::size_t back = 1; back <= std::min<std::size_t>(size, 3); ++back) {
    const BYTE byte = data[size - back];
    if ((byte & 0xC0) == 0x80) continue;
    const std::size_t length = byte >= 0xF0 ? 4 : byte >= 0xE0 ? 3 : byte >= 0xC0 ? 2 : 1;
    return length > back && byte < 0xF8 ? back : 0;
  }
  return 0;
}

curl_off_t TimeOf(const Lane& lane, CURLINFO what) {
  curl_off_t time = 0;
  Curl().easyGet(lane.easy, what, &time);
  return time;
}

}  // namespace

Exchange::Exchange(Lane& lane, const Order& order, const Session::Settings& settings,
                   const std::atomic<bool>& cancelled)
    : m_Lane(lane),
      m_Cancelled(cancelled),
      m_Deadline(settings.timeouts),
      m_WithBody(order.bodySize > 0),
      m_Body(lane.body) {
  m_Body.clear();
  SetUp(order, settings);
  if (Curl().multiAdd(lane.multi, lane.easy) != CURLM_OK) End(kHttpInternalError);
}

Exchange::~Exchange() {
  Curl().multiRemove(m_Lane.multi, m_Lane.easy);
  Curl().easyReset(m_Lane.easy);
  Curl().listFree(m_Lines);
}

DWORD Exchange::SendHead() {
  return RunUntil(Direction::Send, [this] { return m_Asked || IsOnItsWay(); });
}

DWORD Exchange::SendBody(const BYTE* data, std::size_t size) {
  m_Give = data;
  m_GiveSize = size;
  m_Asked = false;
  Continue();
  const DWORD error = RunUntil(Direction::Send, [this] { return m_GiveSize == 0 || m_Head.IsComplete(); });
  m_GiveSize = 0;
  return error;
}

DWORD Exchange::ReceiveHead() {
  const DWORD error = RunUntil(Direction::Receive, [this] { return m_Head.IsComplete(); });
  return error == 0 && !m_Head.IsComplete() ? kHttpConnectionError : error;
}

DWORD Exchange::ReceiveBody() {
  if (Held() > 0) return 0;
  Continue();
  return RunUntil(Direction::Receive, [this] { return Held() > 0; });
}

void Exchange::DropBody() {
  m_DropBody = true;
  m_Taken = m_Body.size();
  Continue();
  RunUntil(Direction::Receive, [] { return false; });
}

std::size_t Exchange::Held() const {
  const std::size_t size = m_Body.size() - m_Taken;
  return m_Ended ? size : size - UnfinishedTail(m_Body.data() + m_Taken, size);
}

std::size_t Exchange::TakeBody(BYTE* out, std::size_t size) {
  const BYTE* const held = m_Body.data() + m_Taken;
  if (size < Held() && UnfinishedTail(held, size) < size) size -= UnfinishedTail(held, size);
  size = std::min(size, Held());
  if (size > 0) std::memcpy(out, held, size);
  m_Taken += size;
  return size;
}

// Runs libcurl until the condition holds or the exchange is at its end.
template <class Condition>
DWORD Exchange::RunUntil(Direction direction, Condition isDone) {
  m_Deadline.Restart();
  while (!isDone() && !m_Ended) {
    Perform();
    if (isDone() || m_Ended) break;
    if (const DWORD error = Wait(direction); error != 0) End(error);
  }
  return isDone() ? 0 : m_Error;
}

void Exchange::Perform() {
  int running = 0;
  if (Curl().multiPerform(m_Lane.multi, &running) != CURLM_OK) return End(kHttpInternalError);
  if (running > 0) return;
  int left = 0;
  const CURLMsg* const message = Curl().multiRead(m_Lane.multi, &left);
  const CURLcode result = message ? message->data.result : CURLE_FAILED_INIT;
  End(IsTooLongALine(result) ? kHttpHeadTooLarge : HttpStatus(result, m_Message));
}

// Does libcurl say so of the answer's head? By the code for a lack of memory, or one that is younger than its headers.
bool Exchange::IsTooLongALine(CURLcode result) const {
  constexpr int kTooLarge = 100;
  return (result == CURLE_OUT_OF_MEMORY || static_cast<int>(result) == kTooLarge) && !m_Head.IsComplete() &&
         TimeOf(m_Lane, CURLINFO_PRETRANSFER_TIME_T) > 0;
}

// 0, or why the wait was in vain.
DWORD Exchange::Wait(Direction direction) {
  const Phase phase = PhaseNow(direction);
  const int left = m_Deadline.Left(phase);
  if (left == 0) return kHttpTimeout;
  int moved = 0;
  if (m_Cancelled) return kHttpCancelled;
  if (Curl().multiPoll(m_Lane.multi, nullptr, 0, left, &moved) != CURLM_OK) return kHttpInternalError;
  if (m_Cancelled) return kHttpCancelled;
  if (moved > 0 && phase >= Phase::Send && !m_DropBody) m_Deadline.Restart();
  return 0;
}

void Exchange::End(DWORD error) {
  m_Ended = true;
  if (m_Error == 0) m_Error = error;
}

void Exchange::Continue() {
  m_Body.erase(m_Body.begin(), m_Body.begin() + static_cast<std::ptrdiff_t>(m_Taken));
  m_Taken = 0;
  if (!m_Paused) return;
  m_Paused = false;
  Curl().easyPause(m_Lane.easy, CURLPAUSE_CONT);
}

// With a body, libcurl asks for it.
bool Exchange::IsOnItsWay() const {
  long size = 0;
  Curl().easyGet(m_Lane.easy, CURLINFO_REQUEST_SIZE, &size);
  return m_Head.IsComplete() || (!m_WithBody && size > 0 && TimeOf(m_Lane, CURLINFO_PRETRANSFER_TIME_T) > 0);
}

Phase Exchange::PhaseNow(Direction direction) const {
  if (TimeOf(m_Lane, CURLINFO_PRETRANSFER_TIME_T) > 0)
    return direction == Direction::Send ? Phase::Send : Phase::Receive;
  return TimeOf(m_Lane, CURLINFO_NAMELOOKUP_TIME_T) > 0 ? Phase::Connect : Phase::Resolve;
}

std::size_t Exchange::OnHeader(const char* line, std::size_t one, std::size_t size, void* self) {
  auto& exchange = *static_cast<Exchange*>(self);
  if (exchange.m_Head.AddLine({line, one * size})) return one * size;
  exchange.m_Error = kHttpHeadTooLarge;
  return 0;
}

std::size_t Exchange::OnAnswer(const char* data, std::size_t one, std::size_t size, void* self) {
  auto& exchange = *static_cast<Exchange*>(self);
  const std::size_t bytes = one * size;
  const std::size_t most = exchange.m_DropBody ? kMostDropped : kMostHeld;
  if (exchange.m_Body.size() + bytes <= most) {
    exchange.m_Body.insert(exchange.m_Body.end(), data, data + bytes);
    return bytes;
  }
  if (exchange.m_DropBody) return 0;
  exchange.m_Paused = true;
  return CURL_WRITEFUNC_PAUSE;
}

std::size_t Exchange::OnAsk(char* room, std::size_t one, std::size_t size, void* self) {
  auto& exchange = *static_cast<Exchange*>(self);
  if (exchange.m_GiveSize == 0 && exchange.m_Head.IsComplete()) {
    Curl().easySet(exchange.m_Lane.easy, CURLOPT_FORBID_REUSE, 1L);  // the server may wait for the rest
    return 0;
  }
  if (exchange.m_GiveSize == 0) {
    exchange.m_Asked = exchange.m_Paused = true;
    return CURL_READFUNC_PAUSE;
  }
  const std::size_t bytes = std::min(one * size, exchange.m_GiveSize);
  std::memcpy(room, exchange.m_Give, bytes);
  exchange.m_Give += bytes;
  exchange.m_GiveSize -= bytes;
  return bytes;
}
