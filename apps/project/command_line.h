// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "media/message.h"

/// An option of a program, as it is typed and as help tells it.
struct CommandOptionText {
  char const *name;         ///< as "--frame"
  char const *value;        ///< what help calls its value, as "N"; null for an option without one
  char const *description;  ///< lines of at most 78 columns, a key of the catalogue; null: not told
};

/// An option of a program that keeps what it was asked in an `Options`.
template <class Options>
struct CommandOption {
  /// Takes the value, empty for an option without one; returns what is wrong with it.
  using Setter = std::function<Message(Options &options, std::string const &value)>;

  CommandOptionText text;
  Setter set;
};

/// What a program takes: its options, in the order in which help tells them.
template <class Options>
using CommandOptions = std::vector<CommandOption<Options>>;

/// The lines in which help tells an option, in the user's language.
std::string UsageLines(CommandOptionText const &option);

template <class Options>
std::string UsageLines(CommandOptions<Options> const &table) {
  std::string lines;
  for (CommandOption<Options> const &option : table) lines += UsageLines(option.text);
  return lines;
}

/// Takes the value of the option at a place of the table, or an operand.
using ArgumentTaker = std::function<Message(std::size_t place, std::string const &value)>;

/// Reads the arguments after the program's name. An option is --name, --name VALUE or --name=VALUE;
/// an operand is what does not begin with a dash, and all after "--", and is taken with the number
/// of options as its place. Returns what is wrong with the first argument that is.
Message ReadArguments(std::vector<std::string> const &arguments,
                      std::vector<CommandOptionText> const &options, ArgumentTaker const &take);

/// The same into `options`, which are meaningless where something is wrong.
template <class Options>
Message ReadCommandLine(std::vector<std::string> const &arguments,
                        CommandOptions<Options> const &table, Options &options,
                        typename CommandOption<Options>::Setter const &setOperand) {
  std::vector<CommandOptionText> texts;
  for (CommandOption<Options> const &option : table) texts.push_back(option.text);
  return ReadArguments(arguments, texts, [&](std::size_t place, std::string const &value) {
    return (place < table.size() ? table[place].set : setOperand)(options, value);
  });
}

/// What is wrong with an argument that a program does not know.
Message UnknownArgument(std::string const &argument);
