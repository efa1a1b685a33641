#include "program/MessageFiles.h"

#include <fstream>
#include <sstream>
#include <stdexcept>

#include "platform/text.h"

namespace program {

namespace {

std::vector<MessageFile> readOne(const std::wstring& file, const Importer& importer) {
    const std::string contents = readFile(pathOf(file));
    if (file.size() > 5 && text::equalsIgnoringCase(file.substr(file.size() - 5), L".json")) {
        return parseMessages(contents);
    }
    if (!importer) {
        throw std::runtime_error("is no message in JSON; \"veltro-host import\" makes one of an e-mail");
    }
    return {{text::toUtf8(file), importer(contents)}};
}

}  // namespace

std::filesystem::path pathOf(const std::wstring& argument) {
    if constexpr (std::filesystem::path::preferred_separator == '/') {
        return {text::toUtf8(argument)};
    } else {
        return {argument};
    }
}

std::string readFile(const std::filesystem::path& file) {
    std::error_code error;
    const auto status = std::filesystem::status(file, error);
    if (!std::filesystem::exists(status)) {
        throw std::runtime_error("there is no such file");
    }
    if (std::filesystem::is_directory(status)) {
        throw std::runtime_error("is a folder");
    }
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream contents;
    if (stream && stream.peek() != std::ifstream::traits_type::eof()) {
        contents << stream.rdbuf();
    }
    if (stream.bad() || (!stream && !stream.eof())) {
        throw std::runtime_error("cannot be read");
    }
    return std::move(contents).str();
}

void replaceFile(const std::filesystem::path& file, std::string_view contents) {
    std::filesystem::path temporary = file;
    temporary += ".new";
    {
        std::ofstream stream(temporary, std::ios::binary | std::ios::trunc);
        stream << contents << '\n';
        stream.close();
        if (!stream) {
            throw std::runtime_error("cannot be written");
        }
    }
    std::error_code error;
    std::filesystem::rename(temporary, file, error);
    if (error) {
        std::error_code ignored;
        std::filesystem::remove(temporary, ignored);
        throw std::runtime_error(error.message());
    }
}

std::vector<MessageFile> readMessages(const std::vector<std::wstring>& files, const Importer& importer) {
    std::vector<MessageFile> messages;
    for (const std::wstring& file : files) {
        try {
            for (MessageFile& message : readOne(file, importer)) {
                messages.push_back(std::move(message));
            }
        } catch (const std::runtime_error& error) {
            throw std::runtime_error(text::toUtf8(file) + ": " + error.what());
        }
    }
    return messages;
}

}  // namespace program
