#include "program/MessageFiles.h"

#include <cstdio>
#include <iostream>
#include <stdexcept>

#include "platform/text.h"
#include "program/files.h"

namespace program {

namespace {

std::string contentsOf(const std::wstring& file) {
    if (file != L"-") {
        return readFile(pathOf(file));
    }
    std::string contents = readAll(std::cin);
    // At a terminal a person still has questions to answer. C's stream below remembers the end, too.
    std::cin.clear();
    std::clearerr(stdin);
    return contents;
}

bool isJson(const std::wstring& file, std::string_view contents) {
    constexpr std::wstring_view extension = L".json";
    const bool named = file.size() > extension.size() &&
                       text::equalsIgnoringCase(file.substr(file.size() - extension.size()), extension);
    const auto first = contents.find_first_not_of(" \t\r\n");
    return named || (first != std::string_view::npos && contents[first] == '[');
}

std::vector<MessageFile> readOne(const std::wstring& file, const Importer& importer) {
    const std::string contents = contentsOf(file);
    if (!isJson(file, contents)) {
        if (!importer) {
            throw std::runtime_error("is no message in JSON; \"veltro-host import\" makes one of an e-mail");
        }
        return {{file, importer(contents)}};
    }
    std::vector<MessageFile> messages = parseMessages(contents);
    if (messages.empty()) {
        throw std::runtime_error("holds no message");
    }
    for (MessageFile& message : messages) {
        if (message.name.empty()) {
            message.name = file;
        }
    }
    return messages;
}

}  // namespace

std::vector<MessageFile> readMessages(const std::vector<std::wstring>& files, const Importer& importer,
                                      const Unreadable& unreadable) {
    std::vector<MessageFile> messages;
    for (const std::wstring& file : files) {
        try {
            for (MessageFile& message : readOne(file, importer)) {
                messages.push_back(std::move(message));
            }
        } catch (const std::runtime_error& error) {
            unreadable(file, error.what());
        }
    }
    return messages;
}

}  // namespace program
