// SPDX-License-Identifier: Apache-2.0
#include "commands/PdfWriter.h"

#include "terminal/CliError.h"

#include "platform/foundation/Files.h"

#include <fmt/format.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <vector>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ; // NOLINT(readability-redundant-declaration)

namespace zorel::cli {

namespace {
/// A folder for the program's input and output, gone with this object.
class WorkFolder {
public:
    WorkFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "zorel-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr) {
            throw CliError(Exit::dataTrouble,
                           tr("cannot make a folder in {}", std::filesystem::temp_directory_path().string()));
        }
        path_ = pattern;
    }
    WorkFolder(const WorkFolder&) = delete;
    WorkFolder& operator=(const WorkFolder&) = delete;
    ~WorkFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    [[nodiscard]] std::string operator/(std::string_view name) const {
        return path_ + '/' + std::string(name);
    }

private:
    std::string path_;
};

/// @return the exit status; -1 when the program was ended by a signal.
int run(std::vector<std::string> words) {
    std::vector<char*> arguments;
    for (std::string& word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    pid_t child = 0;
    const int error = posix_spawnp(&child, arguments.front(), nullptr, nullptr, arguments.data(), environ);
    if (error != 0) {
        throw CliError(
            Exit::dataTrouble, tr("{} cannot be started", words.front()),
            tr("it makes the PDF; install it: apt install weasyprint, or print the HTML from a browser"));
    }
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}
} // namespace

void writePdf(const std::string& html, const std::string& path) {
    const WorkFolder folder;
    std::ofstream(folder / "sheet.html", std::ios::binary) << html;
    const int status =
        run({"weasyprint", "--quiet", "--encoding", "utf-8", folder / "sheet.html", folder / "sheet.pdf"});
    const std::string pdf = status == 0 ? contentOf(folder / "sheet.pdf") : std::string();
    if (!pdf.starts_with("%PDF-")) {
        throw CliError(Exit::dataTrouble, tr("weasyprint made no PDF"), tr("what it says stands above"));
    }
    if (const std::error_code error = replaceFile(path, pdf)) {
        throw CliError(Exit::dataTrouble, tr("cannot write {0}: {1}", printable(path), error.message()),
                       tr("check the folder's permissions and the room on its disk"));
    }
}

} // namespace zorel::cli
