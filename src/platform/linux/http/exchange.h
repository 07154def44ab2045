// One request to one server and its answer, a step at a time: libcurl runs as far as the step needs, and pauses.
#ifndef QEL_PLATFORM_LINUX_HTTP_EXCHANGE_H
#define QEL_PLATFORM_LINUX_HTTP_EXCHANGE_H

#include <atomic>
#include <string>
#include <vector>

#include "answer_head.h"
#include "deadline.h"
#include "session.h"

// What is asked for.
struct Order {
  std::string verb;
  std::string url;
  std::vector<std::string> lines;  // headers
  bool hasCredentials = false;     // for Basic, in UTF-8
  std::string user, password;
  std::uint64_t bodySize = 0;
};

class Exchange {
 public:
  // The lane and `cancelled` must stay as long as the exchange. `cancelled` ends any step with 12017, after a wakeup of the lane.
  Exchange(Lane& lane, const Order& order, const Session::Settings& settings,
           const std::atomic<bool>& cancelled);
  Exchange(const Exchange&) = delete;
  Exchange& operator=(const Exchange&) = delete;
  // An exchange that is not at its end closes its connection.
  ~Exchange();

  // Each gives 0 or the code of Windows. A failure is final: later steps give it too.
  //
  // Until the head is on its way; with a body, until the server may be sent it.
  DWORD SendHead();
  // Until it is on its way. What an early answer leaves unsent is dropped.
  DWORD SendBody(const BYTE* data, std::size_t size);
  DWORD ReceiveHead();
  // Until some of the body is held, or at its end nothing. What is held never ends within a character of UTF-8,
  // except at the end.
  DWORD ReceiveBody();
  // Until the end of a body that nobody wants; one that is long, or takes longer than one wait, ends with the
  // connection.
  void DropBody();

  const AnswerHead& Head() const { return m_Head; }
  // Bytes that TakeBody has. It too gives whole characters, unless there is room for less than one.
  std::size_t Held() const;
  std::size_t TakeBody(BYTE* out, std::size_t size);

 private:
  static std::size_t OnHeader(const char* line, std::size_t one, std::size_t size, void* self);
  static std::size_t OnAnswer(const char* data, std::size_t one, std::size_t size, void* self);
  static std::size_t OnAsk(char* room, std::size_t one, std::size_t size, void* self);

  void SetUp(const Order& order, const Session::Settings& settings);
  void SetUpMethod(const Order& order);
  void SetUpLines(const std::vector<std::string>& lines);
  template <class Condition>
  DWORD RunUntil(Direction direction, Condition isDone);
  void Perform();
  DWORD Wait(Direction direction);
  void End(DWORD error);
  void Continue();
  bool IsOnItsWay() const;
  bool IsTooLongALine(CURLcode result) const;
  Phase PhaseNow(Direction direction) const;

  Lane& m_Lane;
  const std::atomic<bool>& m_Cancelled;
  Deadline m_Deadline;
  const bool m_WithBody;
  curl_slist* m_Lines = nullptr;
  char m_Message[CURL_ERROR_SIZE] = "";
  bool m_Ended = false;
  DWORD m_Error = 0;

  AnswerHead m_Head;
  const BYTE* m_Give = nullptr;  // what SendBody has left to hand over
  std::size_t m_GiveSize = 0;
  bool m_Asked = false;   // libcurl wants more of our body
  bool m_Paused = false;  // in either direction
  bool m_DropBody = false;
  std::vector<BYTE>& m_Body;  // held, from m_Taken on
  std::size_t m_Taken = 0;
};

#endif  // QEL_PLATFORM_LINUX_HTTP_EXCHANGE_H
