// SPDX-License-Identifier: Apache-2.0
#include "grammar/CompletionQuestion.h"

#include "grammar/HelpText.h"

#include <algorithm>

namespace zorel::cli {

namespace {
using Commands = std::vector<CommandHelp>;

const CommandHelp* commandCalled(const Commands& commands, const std::string& name) {
    const auto found = std::ranges::find(commands, name, &CommandHelp::name);
    return found == commands.end() ? nullptr : &*found;
}

const OptionHelp* optionCalled(const CommandHelp& command, const std::string& name) {
    const auto found = std::ranges::find_if(command.options, [&](const OptionHelp& option) {
        return std::ranges::find(option.names, name) != option.names.end();
    });
    return found == command.options.end() ? nullptr : &*found;
}

/// A name in the help: "PLACE", "[PLACE]".
std::string_view bareName(std::string_view argument) {
    return argument.starts_with('[') ? argument.substr(1, argument.size() - 2) : argument;
}

Wanted wantedFor(const std::string& command, std::string_view argument) {
    const std::string_view name = bareName(argument);
    if (name == "PLACE" || name == "TEXT") {
        const bool listed = command == "cities home" || command == "cities remove";
        return listed                                   ? Wanted::ownCity
               : name == "PLACE" || command == "search" ? Wanted::place
                                                        : Wanted::onlyWords;
    }
    if (name == "NAME" && command == "alarms ringtone") {
        return Wanted::ringtone;
    }
    return name == "DIR" ? Wanted::folder : name == "FILE" ? Wanted::file : Wanted::onlyWords;
}

/// Reads the words before the last one.
class Line {
public:
    explicit Line(const Commands& commands) : commands_(commands), command_(&commands.front()) {}

    void read(const std::string& word) {
        if (pending_ != nullptr) {
            if (word != "=") { // bash hands over "--color=always" as three words
                take(word);
            }
        } else if (!literal_ && word == "--") {
            literal_ = true;
        } else if (!literal_ && word.size() > 1 && word.front() == '-') {
            readOption(word);
        } else if (const CommandHelp* below = commandBelow(word); below != nullptr) {
            command_ = below;
        } else {
            positionals_.push_back(word);
        }
    }

    [[nodiscard]] CompletionQuestion question(const std::string& last) {
        CompletionQuestion question;
        if (pending_ != nullptr) {
            askFor(*pending_, last == "=" ? "" : last, "", question);
        } else if (!literal_ && last.starts_with('-')) {
            askForOption(last, question);
        } else if (!commandsBelow(commands_, command_->name).empty()) {
            for (const CommandHelp& below : commandsBelow(commands_, command_->name)) {
                offer(below.name.substr(below.name.rfind(' ') + 1), below.description, last, question);
            }
        } else {
            askForPositional(last, question);
        }
        question.folders = folders_;
        return question;
    }

private:
    [[nodiscard]] const CommandHelp* commandBelow(const std::string& word) const {
        if (!positionals_.empty()) {
            return nullptr;
        }
        return commandCalled(commands_, command_->name.empty() ? word : command_->name + ' ' + word);
    }
    [[nodiscard]] const OptionHelp* optionHere(const std::string& name) const {
        const OptionHelp* own = optionCalled(*command_, name);
        return own != nullptr ? own : optionCalled(commands_.front(), name);
    }
    void take(const std::string& value) {
        if (pending_->isPath) {
            folders_[pending_->names.back()] = value;
        }
        pending_ = nullptr;
    }
    void readOption(const std::string& word) {
        const std::string name = word.substr(0, word.find('='));
        given_.push_back(name);
        const OptionHelp* option = optionHere(name);
        pending_ = option != nullptr && !option->argument.empty() ? option : nullptr;
        if (pending_ != nullptr && name.size() < word.size()) {
            take(word.substr(name.size() + 1));
        }
    }

    static void offer(const std::string& text, const std::string& description, const std::string& begun,
                      CompletionQuestion& question) {
        if (text.starts_with(begun)) {
            question.choices.push_back({text, description});
        }
    }
    /// @param before what the whole word has before the value ("--color=").
    void askFor(const OptionHelp& option, const std::string& begun, const std::string& before,
                CompletionQuestion& question) const {
        for (const std::string& choice : option.choices) {
            offer(before + choice, "", before + begun, question);
        }
        if (bareName(option.argument) == "DATE") {
            for (const char* day : {"today", "tomorrow", "yesterday"}) {
                offer(before + day, "", before + begun, question);
            }
        }
        if (option.choices.empty() && before.empty()) {
            question.wanted = wantedFor(command_->name, option.argument);
            question.typed = begun;
        }
    }
    void askForOption(const std::string& last, CompletionQuestion& question) const {
        if (const auto equals = last.find('='); equals != std::string::npos) {
            if (const OptionHelp* option = optionHere(last.substr(0, equals)); option != nullptr) {
                askFor(*option, last.substr(equals + 1), last.substr(0, equals + 1), question);
            }
            return;
        }
        std::vector<const CommandHelp*> having{command_};
        if (command_ != &commands_.front()) {
            having.push_back(&commands_.front());
        }
        for (const CommandHelp* one : having) {
            for (const OptionHelp& option : one->options) {
                if (isNew(option, question)) {
                    offer(option.names.back(), option.description, last, question);
                }
            }
        }
    }
    /// Neither on the line nor among the choices.
    [[nodiscard]] bool isNew(const OptionHelp& option, const CompletionQuestion& question) const {
        const bool given = std::ranges::any_of(option.names, [&](const std::string& name) {
            return std::ranges::find(given_, name) != given_.end();
        });
        return !given && std::ranges::find(question.choices, option.names.back(), &CompletionChoice::text) ==
                             question.choices.end();
    }
    void askForPositional(const std::string& last, CompletionQuestion& question) const {
        const auto& known = command_->positionals;
        if (known.empty()) {
            return;
        }
        // The words of the last argument are one text.
        const std::size_t at = std::min(positionals_.size(), known.size() - 1);
        const OptionHelp& asked = known[at];
        const Wanted wanted = wantedFor(command_->name, asked.argument);
        if (wanted == Wanted::onlyWords && positionals_.size() >= known.size()) {
            return;
        }
        askFor(asked, last, "", question);
        if (question.wanted != Wanted::onlyWords) {
            question.wordsBefore = positionals_.size() - at;
            question.typed.clear();
            for (std::size_t i = at; i < positionals_.size(); ++i) {
                question.typed += positionals_[i] + ' ';
            }
            question.typed += last;
        }
    }

    const Commands& commands_;
    const CommandHelp* command_;
    const OptionHelp* pending_ = nullptr; ///< waits for its value
    bool literal_ = false;                ///< behind "--"
    std::vector<std::string> positionals_;
    std::vector<std::string> given_; ///< options
    std::map<std::string, std::string> folders_;
};
} // namespace

CompletionQuestion completionQuestion(std::span<const std::string> words) {
    if (words.empty()) {
        return {};
    }
    const Commands commands = describeCommands();
    Line line(commands);
    for (const std::string& word : words.first(words.size() - 1)) {
        line.read(word);
    }
    return line.question(words.back());
}

std::string unquoted(std::string_view word) {
    std::string plain;
    char quote = 0;
    for (std::size_t i = 0; i < word.size(); ++i) {
        const char character = word[i];
        if (quote == 0 && (character == '\'' || character == '"')) {
            quote = character;
        } else if (quote != 0 && character == quote) {
            quote = 0;
        } else if (character == '\\' && quote != '\'' && i + 1 < word.size()) {
            plain += word[++i];
        } else {
            plain += character;
        }
    }
    return plain;
}

std::string shellEscaped(std::string_view word) {
    constexpr std::string_view special = " \t'\"\\$`!&;|<>()[]{}*?#~";
    std::string escaped;
    for (const char character : word) {
        if (special.find(character) != std::string_view::npos) {
            escaped += '\\';
        }
        escaped += character;
    }
    return escaped;
}

} // namespace zorel::cli
