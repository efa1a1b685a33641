#include "program/native/MessageParts.h"

#include <algorithm>
#include <string>

#include "platform/text.h"
#include "program/native/HtmlText.h"
#include "program/native/MailText.h"
#include "program/native/gmimePointers.h"

namespace program {

namespace {

/// Parts nested deeper than any mail program makes them are left out.
constexpr int deepestPart = 64;

std::string contentOf(GMimePart* part) {
    GMimeDataWrapper* content = g_mime_part_get_content(part);
    if (!content) {
        return {};
    }
    const StreamPointer stream(g_mime_stream_mem_new());
    g_mime_data_wrapper_write_to_stream(content, stream.get());
    const GByteArray* bytes = g_mime_stream_mem_get_byte_array(GMIME_STREAM_MEM(stream.get()));
    return bytes && bytes->len > 0 ? std::string(reinterpret_cast<const char*>(bytes->data), bytes->len) : "";
}

bool isAttached(GMimeObject* part) {
    const char* disposition = g_mime_object_get_disposition(part);
    return disposition && g_ascii_strcasecmp(disposition, GMIME_DISPOSITION_ATTACHMENT) == 0;
}

/// The name alone: folders in it are somebody else's, and control characters are never meant.
std::wstring plainFileName(const char* utf8) {
    std::wstring name = text::fromUtf8(toUtf8(utf8 ? utf8 : "", "utf-8"));
    const auto folder = name.find_last_of(L"/\\");
    name.erase(0, folder == std::wstring::npos ? 0 : folder + 1);
    std::erase_if(name, [](wchar_t c) { return c < L' ' || (c >= 0x7F && c < 0xA0); });
    return std::wstring(text::trim(name));
}

const wchar_t* extensionOf(GMimeContentType* type) {
    struct Extension {
        const char* type;
        const char* subtype;
        const wchar_t* extension;
    };
    static constexpr Extension extensions[] = {
        {"text", "plain", L".txt"},
        {"text", "html", L".htm"},
        {"text", "calendar", L".ics"},
        {"image", "png", L".png"},
        {"image", "jpeg", L".jpg"},
        {"image", "gif", L".gif"},
        {"text", "vcard", L".vcf"},
        {"application", "pdf", L".pdf"},
        {"application", "pgp-signature", L".asc"},
    };
    for (const auto& [major, minor, extension] : extensions) {
        if (g_mime_content_type_is_type(type, major, minor)) {
            return extension;
        }
    }
    return L".dat";
}

class PartReader {
  public:
    explicit PartReader(host::Message& message) : message_(message) {}

    void read(GMimeObject* part, bool alternative, int depth) {
        if (!part || depth > deepestPart) {
            return;
        }
        if (GMIME_IS_MULTIPART(part)) {
            readMultipart(GMIME_MULTIPART(part), alternative, depth);
        } else if (GMIME_IS_MESSAGE_PART(part)) {
            attachMessage(GMIME_MESSAGE_PART(part));
        } else if (GMIME_IS_PART(part)) {
            readLeaf(GMIME_PART(part), alternative, depth);
        }
    }

    void finish() {
        if (!hasText_ && hasHtml_) {
            text_ = htmlToText(html_);
        }
        message_.body = text::fromUtf8(withCrLf(text_));
        message_.html = text::fromUtf8(html_);
    }

  private:
    void readMultipart(GMimeMultipart* parts, bool alternative, int depth) {
        GMimeContentType* type = g_mime_object_get_content_type(GMIME_OBJECT(parts));
        const bool choice = g_mime_content_type_is_type(type, "multipart", "alternative");
        const int count = g_mime_multipart_get_count(parts);
        // Only the first alternative is the body; one that comes later is like any other part.
        alternative = alternative || (choice && !hasText_ && !hasHtml_);
        for (int index = 0; index < count; ++index) {
            choosing_ = choice && alternative;
            read(g_mime_multipart_get_part(parts, index), alternative, depth + 1);
        }
        choosing_ = false;
    }

    void readLeaf(GMimePart* part, bool alternative, int depth) {
        GMimeContentType* type = g_mime_object_get_content_type(GMIME_OBJECT(part));
        const bool html = g_mime_content_type_is_type(type, "text", "html");
        const bool plain = g_mime_content_type_is_type(type, "text", "plain");
        const bool named = g_mime_part_get_filename(part) != nullptr && depth > 0;
        const bool free = alternative ? !(html ? hasHtml_ : hasText_) : !hasText_ && !hasHtml_;
        if ((html || plain) && !isAttached(GMIME_OBJECT(part)) && !(named && !choosing_) && free) {
            takeText(part, type, html);
        } else if (!choosing_) {
            attach(part, type);
        }
    }

    void takeText(GMimePart* part, GMimeContentType* type, bool html) {
        const std::string bytes = contentOf(part);
        const char* given = g_mime_content_type_get_parameter(type, "charset");
        std::string charset = given ? given : "";
        if (charset.empty() && html) {
            charset = charsetOfHtml(bytes);
        }
        (html ? html_ : text_) = toUtf8(bytes, charset);
        (html ? hasHtml_ : hasText_) = true;
    }

    void attach(GMimePart* part, GMimeContentType* type) {
        if (g_mime_content_type_is_type(type, "application", "pkcs7-signature") ||
            g_mime_content_type_is_type(type, "application", "x-pkcs7-signature")) {
            return;  // Outlook shows the seal of a signed mail, not the signature.
        }
        std::wstring name = plainFileName(g_mime_part_get_filename(part));
        if (name.empty()) {
            name = nextName(extensionOf(type));
        }
        const char* contentId = g_mime_object_get_content_id(GMIME_OBJECT(part));
        message_.attachments.push_back({name, text::fromUtf8(toUtf8(contentId ? contentId : "", "utf-8"))});
    }

    void attachMessage(GMimeMessagePart* part) {
        GMimeMessage* inner = g_mime_message_part_get_message(part);
        const std::wstring subject = plainFileName(inner ? g_mime_message_get_subject(inner) : nullptr);
        message_.attachments.push_back({subject.empty() ? nextName(L".msg") : subject + L".msg", {}});
    }

    /// Outlook's name for a part that has none.
    std::wstring nextName(const wchar_t* extension) {
        std::wstring number = std::to_wstring(++unnamed_);
        number.insert(0, 5 - std::min<std::size_t>(5, number.size()), L'0');
        return L"ATT" + number + extension;
    }

    host::Message& message_;
    std::string text_;
    std::string html_;
    bool hasText_ = false;
    bool hasHtml_ = false;
    /// The part being read is one of several forms of the same text.
    bool choosing_ = false;
    int unnamed_ = 0;
};

}  // namespace

void readParts(GMimeMessage* mail, host::Message& message) {
    PartReader reader(message);
    reader.read(g_mime_message_get_mime_part(mail), false, 0);
    reader.finish();
}

}  // namespace program
