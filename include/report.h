// A host's calls into the library, with failures turned into text:
//
//   const bool stored =
//       Qel::Report([&] { StoreInvoice(invoice); }, [](const CString& report) { Show(report); });
#ifndef QEL_REPORT_H
#define QEL_REPORT_H

#include <memory>

#include "exceptions.h"

namespace Qel {

// Runs `run` and returns whether it came to its end. When it raises an exception of the family, `onError`
// gets the plain-text report and the exception is deleted, also when `onError` throws. Everything else passes
// through.
template <class Run, class OnError>
bool Report(Run&& run, OnError&& onError) {
  using Sys::Exceptions::qel_exception;
  try {
    run();
    return true;
  } catch (qel_exception* e) {
    const auto remove = [](qel_exception* raised) { raised->Delete(); };
    const std::unique_ptr<qel_exception, decltype(remove)> raised(e, remove);
    onError(raised->GetErrorDetails());
    return false;
  }
}

}  // namespace Qel

#endif  // QEL_REPORT_H
