#include "base/Signal.h"

#include <optional>
#include <string>
#include <type_traits>

#include <gtest/gtest.h>

using designspec::Connection;
using designspec::Signal;

namespace {

static_assert(!std::is_copy_constructible_v<Connection> && !std::is_copy_assignable_v<Connection>);
static_assert(std::is_nothrow_move_constructible_v<Connection>);

TEST(Signal, TellsAllInTheOrderInWhichTheyConnected)
{
    Signal<int, const std::string&> signal;
    std::string told;
    const Connection first = signal.Connect(
        [&](int number, const std::string& text) { told += "1" + text + std::to_string(number); });
    const Connection second =
        signal.Connect([&](int, const std::string& text) { told += "2" + text; });
    signal.Tell(7, "a");
    EXPECT_EQ(told, "1a72a");
}

TEST(Signal, WithoutListenersTellsNobody)
{
    Signal<> signal;
    signal.Tell();
    const Connection nobody = signal.Connect({}); // an empty function is nobody, too
    signal.Tell();
}

TEST(Signal, AReferenceReachesTheListenerAsItIs)
{
    Signal<int&> signal;
    const Connection connection = signal.Connect([](int& value) { ++value; });
    int value = 1;
    signal.Tell(value);
    EXPECT_EQ(value, 2);
}

TEST(Signal, TheConnectionGoneNobodyIsTold)
{
    Signal<> signal;
    int told = 0;
    {
        const Connection connection = signal.Connect([&] { ++told; });
        signal.Tell();
    }
    signal.Tell();
    EXPECT_EQ(told, 1);
}

TEST(Signal, AMovedConnectionHoldsAndAnAssignedOneLetsGo)
{
    Signal<> signal;
    std::string told;
    Connection connection = signal.Connect([&] { told += 'a'; });
    Connection moved = std::move(connection);
    signal.Tell();
    EXPECT_EQ(told, "a");
    moved = signal.Connect([&] { told += 'b'; });
    signal.Tell();
    EXPECT_EQ(told, "ab");
    moved = {};
    signal.Tell();
    EXPECT_EQ(told, "ab");
}

TEST(Signal, AListenerMayDisconnectItselfAndTellAgain)
{
    Signal<> signal;
    int told = 0;
    std::optional<Connection> connection;
    connection = signal.Connect([&, kept = std::make_shared<int>(5)] {
        ++told;
        connection.reset();
        signal.Tell();
        EXPECT_EQ(*kept, 5); // what the function holds lasts until it is through
    });
    signal.Tell();
    EXPECT_EQ(told, 1);
}

TEST(Signal, OneThatIsDisconnectedWhileOthersAreToldIsToldNoMore)
{
    Signal<> signal;
    std::string told;
    Connection second;
    const Connection first = signal.Connect([&] {
        told += '1';
        second = {};
    });
    second = signal.Connect([&] { told += '2'; });
    const Connection third = signal.Connect([&] { told += '3'; });
    signal.Tell();
    EXPECT_EQ(told, "13");
}

TEST(Signal, OneThatConnectsWhileOthersAreToldIsToldFromThenOn)
{
    Signal<> signal;
    std::string told;
    std::vector<Connection> connections;
    connections.push_back(signal.Connect([&] {
        told += '1';
        if (connections.size() == 1) connections.push_back(signal.Connect([&] { told += '2'; }));
    }));
    signal.Tell();
    EXPECT_EQ(told, "1");
    signal.Tell();
    EXPECT_EQ(told, "112");
}

TEST(Signal, MayBeDestroyedWhileItTells)
{
    auto signal = std::make_unique<Signal<>>();
    std::string told;
    const Connection first = signal->Connect([&] {
        told += '1';
        signal.reset();
    });
    const Connection second = signal->Connect([&] { told += '2'; });
    signal->Tell();
    EXPECT_EQ(told, "12");
}

} // namespace
