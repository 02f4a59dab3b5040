// SPDX-License-Identifier: MIT
#include "app/virtual_port.h"

#include <QTest>
#include <vector>

#include <gtest/gtest.h>

#include "app/port_switch.h"
#include "platform/memory/memory_serial_port.h"

namespace quenlor::app {
namespace {

instrument::ViscometerOptions Options(std::string_view text) {
  return std::get<instrument::ViscometerOptions>(instrument::ParseOptionsText(text));
}

bool WaitFor(const std::function<bool()>& holds) { return QTest::qWaitFor(holds, 10'000); }

struct Listener {
  explicit Listener(platform::SerialPort& port) : port_(port) {
    port.OnComm([this](int event) {
      events.push_back(event);
      if (event == platform::comm_event::kReceive) received += port_.Input();
    });
  }

  platform::SerialPort& port_;
  std::vector<int> events;
  std::string received;
};

// An instrument that speaks every hundredth of a second. When it has been heard a few times more, another one
// like it had as much to say.
class Witness {
 public:
  Witness() {
    EXPECT_FALSE(port_.Open(1, "2400E71"));
    port_.Output("START\r");
  }
  void HearMore() {
    const std::size_t heard = listener_.events.size();
    EXPECT_TRUE(WaitFor([&] { return listener_.events.size() >= heard + 5; }));
  }

 private:
  VirtualPort port_{Options("--interval 0.01")};
  Listener listener_{port_};
};

TEST(VirtualPort, AnswersLikeAnInstrumentOnALine) {
  VirtualPort port(Options("--interval 0.01 --form numbered --count 3"));
  Listener listener(port);
  ASSERT_FALSE(port.Open(1, "2400E71"));
  port.Output("QUENLOR\r\n");
  EXPECT_TRUE(WaitFor([&] { return listener.received.find("\n3,") != std::string::npos; }));
  EXPECT_TRUE(listener.received.starts_with("1,"));
}

TEST(VirtualPort, RefusesSettingsThatALineWouldRefuse) {
  VirtualPort port(Options(""));
  EXPECT_TRUE(port.Open(1, "fast"));
  EXPECT_FALSE(port.PortOpen());
}

TEST(VirtualPort, TellsNothingWhileClosedAndNothingOfThatTimeLater) {
  VirtualPort port(Options("--interval 0.01 --form numbered"));
  Listener listener(port);
  ASSERT_FALSE(port.Open(1, "2400E71"));
  port.Output("START\r");
  port.Close();
  Witness().HearMore();
  EXPECT_TRUE(listener.events.empty());
  ASSERT_FALSE(port.Open(1, "2400E71"));
  EXPECT_TRUE(WaitFor([&] { return !listener.received.empty(); }));
  EXPECT_FALSE(listener.received.starts_with("1,"));
}

TEST(VirtualPort, HangUpIsTheEndOfThePortToldOnce) {
  VirtualPort port(Options("--interval 0.01 --fault hangup:2"));
  Listener listener(port);
  ASSERT_FALSE(port.Open(1, "2400E71"));
  port.Output("START\r");
  EXPECT_TRUE(WaitFor([&] { return !port.PortOpen(); }));
  Witness().HearMore();
  EXPECT_EQ(std::count(listener.events.begin(), listener.events.end(), platform::comm_event::kPortGone), 1);
  EXPECT_EQ(std::count(listener.received.begin(), listener.received.end(), '\r'), 2);
  EXPECT_TRUE(port.Open(1, "2400E71")) << "a dead instrument stays dead";
}

TEST(VirtualPort, IsNotEnteredAgainWhileItsListenerLetsEventsRun) {
  Witness witness;
  VirtualPort port(Options("--interval 0.001"));
  int depth = 0;
  int deepest = 0;
  int calls = 0;
  port.OnComm([&](int) {
    deepest = std::max(deepest, ++depth);
    port.Input();
    if (++calls < 5) witness.HearMore();
    --depth;
  });
  ASSERT_FALSE(port.Open(1, "2400E71"));
  port.Output("START\r");
  EXPECT_TRUE(WaitFor([&] { return calls > 6; }));
  EXPECT_EQ(deepest, 1);
}

TEST(PortSwitch, SendsEachNumberToItsOwnPortOrTheSystems) {
  platform::memory::MemorySerialPort system_port;
  PortSwitch ports(system_port);
  auto own = std::make_unique<platform::memory::MemorySerialPort>();
  auto* own_port = own.get();
  std::vector<int> events;
  ports.OnComm([&](int event) { events.push_back(event); });
  ports.Add(2, std::move(own));

  ASSERT_FALSE(ports.Open(2, "9600N81"));
  EXPECT_TRUE(own_port->PortOpen());
  own_port->Feed("x");
  EXPECT_EQ(ports.Input(), "x");
  ASSERT_FALSE(ports.Open(1, "9600N81"));
  EXPECT_FALSE(own_port->PortOpen()) << "one line at a time";
  EXPECT_TRUE(system_port.PortOpen());
  system_port.Feed("y");
  EXPECT_EQ(ports.Input(), "y");
  EXPECT_EQ(events.size(), 2u);
}

}  // namespace
}  // namespace quenlor::app
