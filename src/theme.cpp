#include "theme.h"

#include "exceptions.h"
#include "iappcontext.h"

namespace Qel::UI {

namespace {

class FixedTheme final : public IAppTheme {
 public:
  CString GetFontName() const override { return L"Tahoma"; }

  unsigned long GetColor(COLOR_INDEX index) const override {
    switch (index) {
      case CI_MAIN_HDR:
        return 0x003399;
      case CI_SUB_HDR:
        return 0x0055AA;
      case CI_TITLE:
        return 0x000080;
      case CI_ERROR:
        return 0xC00000;
      default:
        return 0x000000;
    }
  }
};

// Asked by the getter, not by the slot: a context may override it.
std::shared_ptr<IAppTheme> ThemeOfContext() {
  if (!IAppContext::IsValidAppContext()) return nullptr;
  try {
    return IAppContext::GetAppContext()->GetAppTheme();
  } catch (Sys::Exceptions::TXAssertion* e) {
    e->Delete();
    return nullptr;
  }
}

}  // namespace

std::shared_ptr<IAppTheme> GetAppTheme() {
  static const std::shared_ptr<IAppTheme> s_Fixed = std::make_shared<FixedTheme>();
  const auto theme = ThemeOfContext();
  return theme ? theme : s_Fixed;
}

unsigned long GetColor(COLOR_INDEX index) {
  return GetAppTheme()->GetColor(index);
}

}  // namespace Qel::UI
