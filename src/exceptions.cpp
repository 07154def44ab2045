#include "exceptions.h"

#include <cstddef>

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

int CException::ReportError(unsigned, unsigned) { return 0; }

namespace Qel::Sys::Exceptions {

using boost::stacktrace::stacktrace;

namespace {

const wchar_t* KindText(MRX_TYPE type) {
  switch (type) {
    case MRX_OUT_OF_MEMORY: return L"Out of Memory";
    case MRX_CANT_LOCK: return L"Can't lock memory";
    case MRX_CANT_RELEASE: return L"Can't release memory";
  }
  return L"";
}

const wchar_t* KindText(PMX_TYPE type) {
  switch (type) {
    case PMX_INVALID: return L"Invalid Parameter";
    case PMX_MISSING: return L"Missing Parameter";
    case PMX_OUT_OF_RANGE: return L"Parameter Out Of Range";
  }
  return L"";
}

}  // namespace

qel_exception::qel_exception(const wchar_t* message, const wchar_t* source, const char* function, int line,
                             stacktrace trace)
    : m_Message(message), m_Source(source), m_Function(function ? function : ""), m_Line(line), m_Trace(std::move(trace)) {}

qel_exception::~qel_exception() = default;

CString qel_exception::GetError() { return m_Message; }
CString qel_exception::GetErrorDetails() { return GetError(); }
CString qel_exception::GetErrorDetailsAsHTML() { return GetError(); }

#define QEL_MESSAGE_EXCEPTION(Name, Text)                                                                     \
  Name::Name(Text message, const wchar_t* source, const char* function, int line, stacktrace trace)           \
      : qel_exception(message, source, function, line, std::move(trace)) {}                                   \
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
CString file_exception::GetError() { return qel_exception::GetError() + L": " + m_FileName; }

memory_exception::memory_exception(MRX_TYPE type, const wchar_t* source, const char* function, int line,
                                   stacktrace trace)
    : qel_exception(L"Memory Exception", source, function, line, std::move(trace)), m_Type(type) {}
memory_exception::~memory_exception() = default;
CString memory_exception::GetError() { return qel_exception::GetError() + L": " + KindText(m_Type); }

parameter_exception::parameter_exception(PMX_TYPE type, const wchar_t* source, const char* function, int line,
                                         stacktrace trace)
    : qel_exception(L"Parameter Exception", source, function, line, std::move(trace)), m_Type(type) {}
parameter_exception::~parameter_exception() = default;
CString parameter_exception::GetError() { return qel_exception::GetError() + L": " + KindText(m_Type); }

CurrencyNotFoundException::CurrencyNotFoundException(const wchar_t* source, const char* function, int line,
                                                     stacktrace trace)
    : qel_exception(L"Currency not found", source, function, line, std::move(trace)) {}
CurrencyNotFoundException::~CurrencyNotFoundException() = default;

stacktrace CaptureStack(const void* site) {
  constexpr std::size_t kWantedAbove = 2;
  constexpr std::size_t kNoLimit = static_cast<std::size_t>(-1);
  const stacktrace whole(0, kNoLimit);
  for (std::size_t i = kWantedAbove + 1; i < whole.size(); ++i)
    if (whole[i].address() == site) return stacktrace(i - kWantedAbove, kNoLimit);
  return whole;
}

}  // namespace Qel::Sys::Exceptions
