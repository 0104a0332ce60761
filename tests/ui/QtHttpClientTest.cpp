#include "platform/qt/QtHttpClient.h"

#include <gtest/gtest.h>

#include <map>
#include <optional>

#include "LittleServer.h"
#include "LoopSupport.h"

namespace tarvel {
namespace {

using test::LittleServer;
using Answer = LittleServer::Answer;
constexpr auto kClose = LittleServer::After::close;

/// Posts go to the real loop; a timer fires when the test says so.
class HandTimedLoop final : public RunLoop {
 public:
  void post(Task task) override { loop_.post(std::move(task)); }
  void postWhenIdle(Task task) override { loop_.postWhenIdle(std::move(task)); }
  std::unique_ptr<Timer> after(double seconds, Task action) override {
    return std::make_unique<HandTimer>(*this, seconds, std::move(action));
  }
  std::unique_ptr<Timer> every(double first, double, Task action) override {
    return after(first, std::move(action));
  }
  bool isCurrent() const override { return true; }

  /// Lets virtual time pass, firing what falls due.
  void advance(double seconds) {
    now_ += seconds;
    const auto timers = timers_;
    for (const auto& [timer, deadline] : timers) {
      const auto live = timers_.find(timer);
      if (live == timers_.end() || live->second > now_) continue;
      const Task action = timer->action;
      timers_.erase(live);
      action();
    }
  }
  QtRunLoop& real() { return loop_; }
  std::size_t timerCount() const { return timers_.size(); }
  /// How often a timer has been put off.
  int moves() const { return moves_; }

 private:
  struct HandTimer final : Timer {
    HandTimer(HandTimedLoop& owner, double seconds, Task task) : loop(owner), action(std::move(task)) {
      loop.timers_[this] = loop.now_ + seconds;
    }
    ~HandTimer() override { loop.timers_.erase(this); }
    double secondsUntilFire() const override { return 0.0; }
    void fireAfter(double seconds) override {
      if (!loop.timers_.contains(this)) return;
      loop.timers_[this] = loop.now_ + seconds;
      ++loop.moves_;
    }
    HandTimedLoop& loop;
    Task action;
  };

  QtRunLoop loop_;
  double now_ = 0.0;
  int moves_ = 0;
  std::map<HandTimer*, double> timers_;
};

class QtHttpClientTest : public testing::Test {
 protected:
  HttpResult get(QtHttpClient& client, const std::string& url) {
    std::optional<HttpResult> result;
    client.get(url, [&](HttpResult r) { result = std::move(r); });
    EXPECT_FALSE(result) << "completed within the call";
    test::runUntil([&] { return result.has_value(); });
    return *result;
  }
  HttpResult get(const std::string& url) { return get(client_, url); }
  static std::string textOf(const HttpResult& result) {
    if (const auto* response = std::get_if<HttpResponse>(&result)) {
      return std::to_string(response->status) + " " +
             std::string(response->body.begin(), response->body.end());
    }
    const auto& failure = std::get<HttpFailure>(result);
    EXPECT_FALSE(failure.description.empty());
    return failure.kind == HttpFailure::Kind::transport ? "transport" : "not http";
  }

  HandTimedLoop loop_;
  QtHttpClient client_{loop_};
};

TEST_F(QtHttpClientTest, EveryWholeAnswerIsAResponseAndNoOther) {
  const std::tuple<const char*, Answer, const char*> cases[] = {
      {"ok", {LittleServer::reply("200 OK", "body")}, "200 body"},
      {"not found, with its page", {LittleServer::reply("404 Not Found", "gone")}, "404 gone"},
      {"unauthorised",
       {LittleServer::reply("401 Unauthorized", "who", "WWW-Authenticate: Basic realm=\"x\"\r\n")},
       "401 who"},
      {"unavailable", {LittleServer::reply("503 Busy", "b")}, "503 b"},
      {"no content", {"HTTP/1.1 204 No Content\r\n\r\n"}, "204 "},
      {"not modified", {"HTTP/1.1 304 Not Modified\r\n\r\n"}, "304 "},
      {"redirect without a target", {LittleServer::reply("302 Found", "")}, "302 "},
      {"length by closing", {"HTTP/1.1 200 OK\r\n\r\nto the end", kClose}, "200 to the end"},
      {"chunks", {"HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n3\r\nabc\r\n0\r\n\r\n"}, "200 abc"},
      {"cut body", {"HTTP/1.1 200 OK\r\nContent-Length: 50\r\n\r\npart", kClose}, "transport"},
      {"cut page", {"HTTP/1.1 404 Not Found\r\nContent-Length: 50\r\n\r\npart", kClose}, "transport"},
      {"closed without a word", {"", kClose}, "transport"},
      {"no HTTP at all", {"SSH-2.0-server ready\r\n\r\n", kClose}, "transport"},
      {"cut head", {"HTTP/1.1 200 OK\r\nConte", kClose}, "transport"},
  };
  for (const auto& [name, answer, outcome] : cases) {
    LittleServer server(answer);
    EXPECT_EQ(textOf(get(server.url("/file.b1"))), outcome) << name;
  }
}

TEST_F(QtHttpClientTest, AddressesThatCannotBeFetchedAreTransportFailures) {
  const std::string refused = LittleServer(Answer{}).url("/");
  for (const std::string& url :
       {std::string(), std::string("no address"), std::string("http://"), std::string("http:///path"),
        std::string("http://host:99999/"), std::string("http://ho st/"), std::string("file:///etc/hostname"),
        std::string("ftp://127.0.0.1/"), std::string("data:text/plain,x"), std::string("qrc:/tarvel.svg"),
        std::string("\xff\xfe"), refused}) {
    EXPECT_EQ(textOf(get(url)), "transport") << url;
  }
}

TEST_F(QtHttpClientTest, FollowsFiveRedirectsWithinTheWeb) {
  LittleServer server([&](const std::string& path, const std::string&) {
    const int left = std::stoi(path.substr(1));
    if (left == 0) return Answer{LittleServer::reply("200 OK", "there")};
    return Answer{LittleServer::redirect("/" + std::to_string(left - 1))};
  });
  EXPECT_EQ(textOf(get(server.url("/5"))), "200 there");
  EXPECT_EQ(textOf(get(server.url("/6"))), "transport");
  for (const char* target : {"file:///etc/hostname", "ftp://127.0.0.1/x", "qrc:/tarvel.svg"}) {
    LittleServer leaving(Answer{LittleServer::redirect(target)});
    EXPECT_EQ(textOf(get(leaving.url("/"))), "transport") << target;
  }
}

TEST_F(QtHttpClientTest, NothingIsKeptBetweenRequests) {
  LittleServer server(Answer{LittleServer::reply(
      "200 OK", "x", "Set-Cookie: a=b\r\nCache-Control: max-age=9999\r\nETag: \"1\"\r\n")});
  for (int i = 0; i < 2; ++i) EXPECT_EQ(textOf(get(server.url("/same"))), "200 x");
  ASSERT_EQ(server.requests().size(), 2u);
  for (const char* header : {"Cookie", "If-None-Match", "If-Modified-Since"})
    EXPECT_EQ(server.requests().back().find(header), std::string::npos) << header;
}

TEST_F(QtHttpClientTest, ALongBodyIsAFailure) {
  HttpLimits limits;
  limits.bodyBytes = 1000;
  QtHttpClient client(loop_, limits);
  for (const auto& [size, fits] : {std::pair{1000, true}, {1001, false}, {300'000, false}}) {
    const std::string body(static_cast<std::size_t>(size), 'x');
    LittleServer announced(Answer{LittleServer::reply("200 OK", body)});
    LittleServer unannounced(Answer{"HTTP/1.1 200 OK\r\n\r\n" + body, kClose});
    const std::string expected = fits ? "200 " + body : "transport";
    EXPECT_EQ(textOf(get(client, announced.url("/"))), expected) << size;
    EXPECT_EQ(textOf(get(client, unannounced.url("/"))), expected) << size;
  }
}

TEST_F(QtHttpClientTest, FailsAfterAMinuteOfSilenceAndTenMinutesInAll) {
  LittleServer server(Answer{"HTTP/1.1 200 OK\r\nContent-Length: 100000\r\n\r\nx"});
  const auto minutesUntilFailure = [&](bool dripping) {
    std::optional<HttpResult> result;
    const int movesAtStart = loop_.moves();
    client_.get(server.url("/"), [&](HttpResult r) { result = std::move(r); });
    const std::size_t before = server.requests().size();
    test::runUntil([&] { return server.requests().size() > before && loop_.moves() > movesAtStart; });
    double seconds = 0.0;
    while (loop_.timerCount() > 0) {
      loop_.advance(30.0);
      seconds += 30.0;
      if (!dripping || loop_.timerCount() == 0) continue;
      const int movesBefore = loop_.moves();
      server.send("y");
      test::runUntil([&] { return loop_.moves() > movesBefore; });
    }
    test::runUntil([&] { return result.has_value(); });
    EXPECT_EQ(textOf(*result), "transport");
    return seconds / 60.0;
  };
  EXPECT_EQ(minutesUntilFailure(false), 1.0);
  EXPECT_EQ(minutesUntilFailure(true), 10.0);
}

TEST_F(QtHttpClientTest, ManyRequestsRunAtOnceAndEachCompletesOnce) {
  LittleServer server([](const std::string& path, const std::string&) {
    return Answer{LittleServer::reply("200 OK", path)};
  });
  std::map<std::string, int> completions;
  for (int i = 0; i < 30; ++i)
    client_.get(server.url("/" + std::to_string(i)), [&](const HttpResult& r) { ++completions[textOf(r)]; });
  test::runUntil([&] { return completions.size() == 30; });
  test::runUntilIdle(loop_.real());
  for (const auto& [text, count] : completions) EXPECT_EQ(count, 1) << text;
}

TEST_F(QtHttpClientTest, ADestroyedClientCompletesNothing) {
  LittleServer server(Answer{LittleServer::reply("200 OK", "x")});
  auto client = std::make_unique<QtHttpClient>(loop_);
  int completions = 0;
  client->get(server.url("/"), [&](const HttpResult&) { ++completions; });
  client->get("no address", [&](const HttpResult&) { ++completions; });
  client.reset();
  EXPECT_EQ(textOf(get(server.url("/"))), "200 x");
  EXPECT_EQ(completions, 0);
  // A completion may destroy its own client.
  client = std::make_unique<QtHttpClient>(loop_);
  client->get(server.url("/"), [&](const HttpResult&) { client.reset(); });
  test::runUntil([&] { return !client; });
}

}  // namespace
}  // namespace tarvel
