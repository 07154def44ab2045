#include "iappcontext.h"

#include <gtest/gtest.h>

#include "support/fixed_clock.h"
#include "support/fresh_process.h"
#include "support/raises.h"

TEST(AppContextTest, BeforeTheApplicationStartsThereIsNone) {
  EXPECT_IN_FRESH_PROCESS({
    EXPECT_FALSE(IAppContext::IsValidAppContext());
    EXPECT_EQ(RaisedBy([] { GetSysLogger(); }), L"m_AppContext != nullptr");
    IAppContext::SetAppContext(nullptr);
    EXPECT_FALSE(IAppContext::IsValidAppContext());
    CreateAppContext<TestContext>();
    EXPECT_TRUE(IAppContext::IsValidAppContext());
  });
}
