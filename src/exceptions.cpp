#include "exceptions.h"

#include <boost/core/demangle.hpp>
#include <cstddef>
#include <typeinfo>

#include "encoding.h"
#include "html.h"

CRuntimeClass* CObject::GetRuntimeClass() const {
  static CRuntimeClass s_Class{"CObject"};
  return &s_Class;
}

void CException::Delete() {
  if (m_AutoDelete) delete this;
}

CRuntimeClass* CException::GetRuntimeClass() const {
  static CRuntimeClass s_Class{"CException"};
  return &s_Class;
}

BOOL CException::GetErrorMessage(wchar_t* buffer, unsigned size, unsigned* help) const {
  if (buffer && size > 0) *buffer = L'\0';
  if (help) *help = 0;
  return 0;
}

BOOL CException::GetErrorMessage(wchar_t* buffer, unsigned size, unsigned* help) {
  return static_cast<const CException*>(this)->GetErrorMessage(buffer, size, help);
}

int CException::ReportError(unsigned, unsigned) {
  return 0;
}

namespace Qel::Sys::Exceptions {

using boost::stacktrace::stacktrace;
using Text::Encoding::ConvertA2N;

namespace {

const wchar_t* KindText(MRX_TYPE type) {
  switch (type) {
    case MRX_OUT_OF_MEMORY:
      return L"Out of Memory";
    case MRX_CANT_LOCK:
      return L"Can't lock memory";
    case MRX_CANT_RELEASE:
      return L"Can't release memory";
  }
  return L"";
}

const wchar_t* KindText(PMX_TYPE type) {
  switch (type) {
    case PMX_INVALID:
      return L"Invalid Parameter";
    case PMX_MISSING:
      return L"Missing Parameter";
    case PMX_OUT_OF_RANGE:
      return L"Parameter Out Of Range";
  }
  return L"";
}

// The capture and the making of the exception stand on top of the recorded stack.
constexpr int kOwnFrames = -2;
constexpr int kPlainFrames = 8;
constexpr int kHtmlFrames = 5;  // Kept: fewer than above, because a message box has less room
constexpr unsigned long kLightGrey = 0xC0C0C0;
constexpr std::size_t kNoLimit = static_cast<std::size_t>(-1);

// As crash reports have always spelled it, whichever compiler built the library.
CString ClassName(const qel_exception& e) {
  return L"class " + ConvertA2N(boost::core::demangle(typeid(e).name()).c_str());
}

CString Decimal(int value) {
  return ConvertA2N(std::to_string(value).c_str());
}

}  // namespace

qel_exception::qel_exception(const wchar_t* message, const wchar_t* source, const char* function, int line,
                             stacktrace trace)
    : m_Message(message),
      m_Source(source),
      m_Function(function ? function : ""),
      m_Line(line),
      m_Trace(std::move(trace)) {}

qel_exception::~qel_exception() = default;

CString qel_exception::GetError() {
  return m_Message;
}

CString qel_exception::GetErrorDetails() {
  CString text = L"Error Message:\n-----------------\n" + GetError() + L"\n\n";
  text += L"Exception Class:\n------------------\n" + ClassName(*this) + L"\n\n";
  text += L"Location:\n=======\n";
  text += L"Function:\n-----------\n" + ConvertA2N(m_Function.c_str()) + L"\n\n";
  text += L"File:\n-----\n" + m_Source + L"\n";
  text += L"Line:" + Decimal(m_Line) + L"\n\n";
  return text + L"Stack Trace:\n========\n" + StackTraceList(m_Trace, kOwnFrames, kPlainFrames);
}

// Kept: texts are not escaped and the first item ends no line, because message boxes have always shown it so.
CString qel_exception::GetErrorDetailsAsHTML() {
  CString html = HTMLCapVal(L"Exception Type", ClassName(*this));
  html += HTMLCapVal(L"Error Message", GetError()) + L"\n\n";
  html += HTMLBold(L"<u>Exception Location</u>\n");
  html += HTMLCapVal(L"Function", ConvertA2N(m_Function.c_str())) + L"\n";
  html += HTMLCapVal(L"File", m_Source) + L"\n";
  html += HTMLCapVal(L"Line", Decimal(m_Line)) + L"\n\n";
  const CString frames = HTMLBold(L"<u>Stack Trace</u>\n") + StackTraceList(m_Trace, kOwnFrames, kHtmlFrames);
  return HTMLLTRPara(html + HTMLColor(frames + L"\n", kLightGrey));
}

#define QEL_MESSAGE_EXCEPTION(Name, Text)                                                           \
  Name::Name(Text message, const wchar_t* source, const char* function, int line, stacktrace trace) \
      : qel_exception(message, source, function, line, std::move(trace)) {}                         \
  Name::~Name() = default;

QEL_MESSAGE_EXCEPTION(qel_security_exception, const wchar_t*)
QEL_MESSAGE_EXCEPTION(res_exception, const wchar_t*)
QEL_MESSAGE_EXCEPTION(guid_exception, const wchar_t*)
QEL_MESSAGE_EXCEPTION(date_exception, const wchar_t*)
QEL_MESSAGE_EXCEPTION(ParserArithmeticException, const CString&)
QEL_MESSAGE_EXCEPTION(ParserEvaluationException, const CString&)
QEL_MESSAGE_EXCEPTION(ParserValidationException, const CString&)
QEL_MESSAGE_EXCEPTION(TXAssertion, const wchar_t*)
#undef QEL_MESSAGE_EXCEPTION

file_exception::file_exception(const wchar_t* fileName, const wchar_t* message, const wchar_t* source,
                               const char* function, int line, stacktrace trace)
    : qel_exception(message, source, function, line, std::move(trace)), m_FileName(fileName) {}
file_exception::~file_exception() = default;
CString file_exception::GetError() {
  return qel_exception::GetError() + L": " + m_FileName;
}

memory_exception::memory_exception(MRX_TYPE type, const wchar_t* source, const char* function, int line,
                                   stacktrace trace)
    : qel_exception(L"Memory Exception", source, function, line, std::move(trace)), m_Type(type) {}
memory_exception::~memory_exception() = default;
CString memory_exception::GetError() {
  return qel_exception::GetError() + L": " + KindText(m_Type);
}

parameter_exception::parameter_exception(PMX_TYPE type, const wchar_t* source, const char* function, int line,
                                         stacktrace trace)
    : qel_exception(L"Parameter Exception", source, function, line, std::move(trace)), m_Type(type) {}
parameter_exception::~parameter_exception() = default;
CString parameter_exception::GetError() {
  return qel_exception::GetError() + L": " + KindText(m_Type);
}

CurrencyNotFoundException::CurrencyNotFoundException(const wchar_t* source, const char* function, int line,
                                                     stacktrace trace)
    : qel_exception(L"Currency not found", source, function, line, std::move(trace)) {}
CurrencyNotFoundException::~CurrencyNotFoundException() = default;

stacktrace CaptureStack(const void* site) {
  constexpr std::size_t kWantedAbove = 2;
  stacktrace whole(0, kNoLimit);
  for (std::size_t i = kWantedAbove + 1; i < whole.size(); ++i)
    if (whole[i].address() == site) return stacktrace(i - kWantedAbove, kNoLimit);
  return whole;
}

CString StackTraceList(const stacktrace& trace, int skip, int max) {
  // Kept: the limit is tested after printing, so 0 still prints a line, because hosts pass it for "the top".
  std::string text;
  long long number = skip;
  for (const auto& frame : trace) {
    if (++number > 0) text += '#' + std::to_string(number) + ' ' + boost::stacktrace::to_string(frame) + '\n';
    if (number >= max) break;
  }
  return ConvertA2N(text.c_str());
}

CString StackTraceList(int skip, int max) {
  return StackTraceList(stacktrace(0, kNoLimit), skip, max);
}

void ThrowResourceException() {
  // Kept: a plain text pointer and no member of the family, because hosts tell the two apart by the handler.
  // It is not const, since a handler for wchar_t* would not see it otherwise.
  static wchar_t s_Text[] = L"Resource Exception";
  throw static_cast<wchar_t*>(s_Text);
}

}  // namespace Qel::Sys::Exceptions
