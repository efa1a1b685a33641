#pragma once

#include <string_view>
#include <vector>

#include "platform/Prompts.h"
#include "program/CommandLine.h"
#include "program/ExitStatus.h"
#include "program/MessageFiles.h"
#include "program/Report.h"

/// What both worlds' programs have in common beside the session.
namespace program {

struct ReadFiles {
    std::vector<MessageFile> messages;
    /// Done, or BadInput when a file could not be read.
    ExitStatus status = ExitStatus::Done;
};

/// The messages of the command line's files; tells of those that cannot be read.
ReadFiles readFiles(const CommandLine& line, const Importer& importer, Report* report = nullptr);

/// Tells what is odd about the command line.
void tellWarnings(const CommandLine& line);

/// One line on the standard error output. Gives the status of bad input.
ExitStatus complain(std::string_view why);

/// Tells of answers that no prompt has asked for: most likely a prompt was expected that did not come.
void tellUnused(const std::vector<platform::PromptAnswer>& answers);

/// The end of the program: what was to be written must have been, else the status is that of bad input.
ExitStatus finish(ExitStatus status);

}  // namespace program
