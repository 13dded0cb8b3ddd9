#include "loader/command.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace halyard::loader {
namespace {

using Commands = std::vector<std::pair<Action, unsigned>>;

const Commands NotGood = {{Action{99}, 0}};

// The arguments stand in one text, each closed by a bar.
Commands Parse(std::string text) {
    std::vector<const char*> arguments;
    for (std::size_t at = 0, end; (end = text.find('|', at)) != text.npos; at = end + 1) {
        text[end] = 0;
        arguments.push_back(&text[at]);
    }
    const CommandLine line = ParseCommandLine(static_cast<int>(arguments.size()), arguments.data());
    if (!line.good) return NotGood;
    Commands commands;
    for (std::size_t index = 0; index < line.count; ++index)
        commands.emplace_back(line.commands[index].action, line.commands[index].argument);
    return commands;
}

TEST(CommandLine, IsReadInOrderOrRefused) {
    using enum Action;
    std::string most;
    for (std::size_t index = 0; index < MaxCommands; ++index)
        most += "--status|";
    const std::pair<std::string, Commands> Good[] = {
        {"", {}},
        {"--enable|--quit|--disable|--status|", {{Enable, 0}, {Quit, 0}, {Disable, 0}, {Status, 0}}},
        {"--switch|0|--config|--switch|999999999|", {{Switch, 0}, {Config, 0}, {Switch, 999999999}}},
        {"--config|3|--switch|000000007|--config|", {{Config, 3}, {Switch, 7}, {Config, 0}}},
        {most, Commands(MaxCommands, {Status, 0})}};
    for (const auto& [arguments, commands] : Good)
        EXPECT_EQ(Parse(arguments), commands) << arguments;
    // clang-format off
    const std::string Refused[] = {
        "status|", "-status|", "--Status|", "--status |", "--statu|", "--|", "--status|5|", "--quit|--no-such|",
        "--switch|", "--switch|--status|", "--switch||", "--switch|-1|", "--switch|+1|", "--switch| 1|", "--switch|1a|",
        "--switch|1000000000|", "--switch|1|2|", "--switch=1|", "--config|windows|", "--config||", "--config|1|1|",
        most + "--status|"};
    // clang-format on
    for (const std::string& arguments : Refused)
        EXPECT_EQ(Parse(arguments), NotGood) << arguments;
}

}  // namespace
}  // namespace halyard::loader
