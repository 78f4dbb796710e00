#include "http/request_queue_posix.h"

#include <gtest/gtest.h>

#include <thread>

namespace mrl {
namespace {

std::shared_ptr<RemoteRequest> named(const std::string& command) {
  auto request = std::make_shared<RemoteRequest>();
  request->command = command;
  return request;
}

TEST(RequestQueuePosixTest, RequestsAreTakenInTheOrderInWhichTheyWerePosted) {
  RequestQueuePosix queue;
  for (const char* name : {"a", "b", "c"}) EXPECT_TRUE(queue.post({}, named(name)));
  std::string order;
  for (const auto& request : queue.take()) order += request->command;
  EXPECT_EQ(order, "abc");
  EXPECT_TRUE(queue.take().empty());
}

TEST(RequestQueuePosixTest, ADrainAndTheEndLetGoOfEveryRequest) {
  const auto request = named("a");
  {
    RequestQueuePosix queue;
    EXPECT_TRUE(queue.post({}, request));
    queue.drain();
    EXPECT_EQ(request.use_count(), 1);
    EXPECT_TRUE(queue.post({}, request));
  }
  EXPECT_EQ(request.use_count(), 1);
}

TEST(RequestQueuePosixTest, AWaitEndsWhenAnotherThreadPosts) {
  RequestQueuePosix queue;
  std::thread poster([&queue] { (void)queue.post({}, named("a")); });
  queue.wait(10'000);
  EXPECT_EQ(queue.take().size(), 1U);
  poster.join();
}

TEST(RequestQueuePosixTest, AnEventIsWaitedForAndStaysSet) {
  RequestQueuePosix queue;
  const auto event = queue.makeEvent();
  EXPECT_FALSE(event->wait(0));
  event->set();
  EXPECT_TRUE(event->wait(0));
  EXPECT_TRUE(event->wait(0));
}

}  // namespace
}  // namespace mrl
