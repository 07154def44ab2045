// The one family of exceptions. They are made on the heap, thrown as pointers, and deleted by the handler:
//
//   #define QEL_SOURCE L"host/orders"                     // before any use, the host's own fixed text
//   QEL_REQUIRE(count > 0, L"count > 0");                 // raises TXAssertion with that text
//   QEL_RAISE(file_exception, L"a.log", L"Cannot open");  // raises the class with its leading arguments
//
//   try { ... } catch (Qel::Sys::Exceptions::qel_exception* e) { Show(e->GetErrorDetails()); e->Delete(); }
//
// Every exception knows the text, the source path, the function, the line and the call stack of where it was
// raised. Objects are immutable; one belongs to the thread that raised and handles it.
#ifndef QEL_EXCEPTIONS_H
#define QEL_EXCEPTIONS_H

#include <boost/stacktrace.hpp>

#include <string>
#include <utility>

#include "cobject.h"
#include "qel_cstring.h"
#include "qel_export.h"

namespace Qel::Sys::Exceptions {

// Why memory failed. 0 is not used.
enum MRX_TYPE : int { MRX_OUT_OF_MEMORY = 1, MRX_CANT_LOCK = 2, MRX_CANT_RELEASE = 3 };

// What was wrong with a parameter. 0 is not used.
enum PMX_TYPE : int { PMX_INVALID = 1, PMX_MISSING = 2, PMX_OUT_OF_RANGE = 3 };

// Every constructor of the family ends in (source path, function signature, line, call stack of the raising
// site).
class QEL_API qel_exception : public CException {
 public:
  qel_exception(const wchar_t* message, const wchar_t* source, const char* function, int line,
                boost::stacktrace::stacktrace trace);
  ~qel_exception() override;

  // Slot order is ABI.
  // The message, with what a subclass adds to it.
  virtual CString GetError();
  // The plain-text report: message, class, function, file, line and at most eight frames of the stack.
  virtual CString GetErrorDetails();
  // The same as a left-to-right HTML paragraph, with at most five frames. Texts are not escaped.
  virtual CString GetErrorDetailsAsHTML();

  // The site that raised: its source path, the signature of its function as the compiler spells it, its line.
  CString GetFile() const { return m_Source; }
  std::string GetFunctionName() const { return m_Function; }
  int GetLineNumber() const { return m_Line; }

 private:
  CString m_Message;
  CString m_Source;
  std::string m_Function;
  int m_Line;
  boost::stacktrace::stacktrace m_Trace;
};

// Declares a member of the family that adds nothing but its name.
#define QEL_MESSAGE_EXCEPTION(Name, Text)                                     \
  class QEL_API Name : public qel_exception {                                 \
   public:                                                                    \
    Name(Text message, const wchar_t* source, const char* function, int line, \
         boost::stacktrace::stacktrace trace);                                \
    ~Name() override;                                                         \
  }

QEL_MESSAGE_EXCEPTION(qel_security_exception, const wchar_t*);
QEL_MESSAGE_EXCEPTION(res_exception, const wchar_t*);
QEL_MESSAGE_EXCEPTION(guid_exception, const wchar_t*);
QEL_MESSAGE_EXCEPTION(date_exception, const wchar_t*);
QEL_MESSAGE_EXCEPTION(ParserArithmeticException, const CString&);
QEL_MESSAGE_EXCEPTION(ParserEvaluationException, const CString&);
QEL_MESSAGE_EXCEPTION(ParserValidationException, const CString&);
// The message is the text of the condition that failed.
QEL_MESSAGE_EXCEPTION(TXAssertion, const wchar_t*);
#undef QEL_MESSAGE_EXCEPTION

class QEL_API file_exception : public qel_exception {
 public:
  file_exception(const wchar_t* fileName, const wchar_t* message, const wchar_t* source, const char* function,
                 int line, boost::stacktrace::stacktrace trace);
  ~file_exception() override;
  CString GetError() override;  // message + ": " + file name

 private:
  CString m_FileName;
};

class QEL_API memory_exception : public qel_exception {
 public:
  memory_exception(MRX_TYPE type, const wchar_t* source, const char* function, int line,
                   boost::stacktrace::stacktrace trace);
  ~memory_exception() override;
  CString GetError() override;  // "Memory Exception: " + the kind's text, nothing for an unknown kind
  MRX_TYPE GetType() const { return m_Type; }

 private:
  MRX_TYPE m_Type;
};

class QEL_API parameter_exception : public qel_exception {
 public:
  parameter_exception(PMX_TYPE type, const wchar_t* source, const char* function, int line,
                      boost::stacktrace::stacktrace trace);
  ~parameter_exception() override;
  CString GetError() override;  // "Parameter Exception: " + the kind's text, nothing for an unknown kind
  PMX_TYPE GetType() const { return m_Type; }

 private:
  PMX_TYPE m_Type;
};

// "Currency not found".
class QEL_API CurrencyNotFoundException : public qel_exception {
 public:
  CurrencyNotFoundException(const wchar_t* source, const char* function, int line,
                            boost::stacktrace::stacktrace trace);
  ~CurrencyNotFoundException() override;
};

// The calling thread's stack, cut so that exactly two frames lie above the frame that returns to `site`: the
// report drops those two, and line "#1" names the function that raised.
QEL_API QEL_NOINLINE boost::stacktrace::stacktrace CaptureStack(const void* site);

// Makes an exception for the caller to throw; the only maker, so that the two frames above are always the
// same.
template <class Exception, class... Leading>
QEL_NOINLINE Exception* MakeException(const wchar_t* source, const char* function, int line,
                                      Leading&&... leading) {
  return new Exception(std::forward<Leading>(leading)..., source, function, line,
                       CaptureStack(__builtin_return_address(0)));
}

// Text of a call stack: "#n description\n" for each frame. The counter starts at `skip` and is printed when
// greater than 0; printing stops once it has reached `max`. So (-2, 8) drops two frames and prints at most
// eight.
QEL_API CString StackTraceList(const boost::stacktrace::stacktrace& trace, int skip, int max);
// The same for the calling thread's current stack.
QEL_API CString StackTraceList(int skip, int max);

// Throws the wide text pointer "Resource Exception" itself: only a handler for wchar_t* sees it.
[[noreturn]] QEL_API void ThrowResourceException();

}  // namespace Qel::Sys::Exceptions

// Raise `Class` (a member of the family) with its leading arguments, as QEL_SOURCE and the real line, or as
// the path and line given: crash reports are grouped by them, so some sites keep fixed ones. A class of a host's own,
// derived from one of the family, is one too, once it is named there:
//   namespace Qel::Sys::Exceptions { using ::order_exception; }
#define QEL_RAISE(Class, ...) QEL_RAISE_AT(Class, QEL_SOURCE, __LINE__ __VA_OPT__(, ) __VA_ARGS__)
#define QEL_RAISE_AT(Class, path, line, ...)                                  \
  throw ::Qel::Sys::Exceptions::MakeException<::Qel::Sys::Exceptions::Class>( \
      path, __PRETTY_FUNCTION__, line __VA_OPT__(, ) __VA_ARGS__)

// Raise TXAssertion with `text` unless `condition` holds, in every build. The text is given and not made from
// the condition, since formatter and macros change that.
#define QEL_REQUIRE(condition, text) QEL_REQUIRE_AT(condition, text, QEL_SOURCE, __LINE__)
#define QEL_REQUIRE_AT(condition, text, path, line) \
  do {                                              \
    if (!(condition)) [[unlikely]]                  \
      QEL_RAISE_AT(TXAssertion, path, line, text);  \
  } while (false)

#endif  // QEL_EXCEPTIONS_H
