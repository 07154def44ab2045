// The platform's functions for HTTP against recorded answers. One test for each group, since they run side by side.
#include <gtest/gtest.h>

#include "http/replay.h"

namespace {

void Replay(std::initializer_list<const char*> prefixes) {
  ReplayRows({{":39181", "http"}}, prefixes);
}

}  // namespace

TEST(HttpCallsTest, RequestsAreSentAsRecorded) {
  Replay({"o_get", "o_hdr", "o_post", "o_host2", "o_cookie", "o_reuse"});
}

TEST(HttpCallsTest, HeadsAreReadAsRecorded) {
  Replay({"o_empty", "o_code", "o_20", "o_30", "o_head", "o_999", "o_600", "o_lf", "o_fold", "o_dup",
          "o_case", "o_noreason", "o_latin", "o_long", "o_many", "o_info", "o_cont"});
}

TEST(HttpCallsTest, BodiesAreReadAsRecorded) {
  Replay({"o_len", "o_chunk", "o_utf", "o_nul", "o_bom", "o_close", "o_gzip", "o_conn", "o_both"});
}

TEST(HttpCallsTest, BrokenConnectionsAreAnsweredAsRecorded) {
  Replay({"o_short", "o_reset", "o_garbage", "o_half", "e_"});
}

TEST(HttpCallsTest, RedirectionsAndPasswordsAreAnsweredAsRecorded) {
  Replay({"o_r3", "o_rp", "o_rloop", "o_rno", "o_rabs", "o_rhost", "o_auth"});
}
