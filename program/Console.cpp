#include "program/Console.h"

#include <algorithm>
#include <cerrno>
#include <iostream>
#include <system_error>

#include "platform/replaceFile.h"
#include "platform/terminalText.h"
#include "platform/text.h"
#include "program/Answers.h"

namespace program {

ExitStatus complain(std::string_view why) {
    std::cerr << "veltro-host: " << platform::terminalLine(text::fromUtf8(why)) << std::endl;
    return ExitStatus::BadInput;
}

ReadFiles readFiles(const CommandLine& line, const Importer& importer, Report* report) {
    ReadFiles read;
    read.messages = readMessages(line.files, importer, [&](const std::wstring& file, const std::string& why) {
        read.status = complain(text::toUtf8(file) + ": " + why);
        if (report) {
            report->unreadable(file, why);
        }
    });
    return read;
}

void tellWarnings(const CommandLine& line) {
    for (const std::string& warning : line.warnings) {
        complain(warning);
    }
}

void tellUnused(const std::vector<platform::PromptAnswer>& answers) {
    for (const platform::PromptAnswer& answer : answers) {
        complain("nothing asked for the answer \"" + text::toUtf8(answerText(answer)) + "\"");
    }
}

ExitStatus finish(ExitStatus status) {
    errno = 0;
    std::cout.flush();
    if (std::cout) {
        return status;
    }
    const std::error_code error(errno, std::generic_category());
    complain("the output could not be written" + (error ? ": " + platform::reasonOf(error) : ""));
    return std::max(status, ExitStatus::BadInput);
}

}  // namespace program
