#pragma once

#include <gmime/gmime.h>

#include <memory>

namespace program {

struct ReleaseGlib {
    template <class T>
    void operator()(T* object) const {
        g_object_unref(object);
    }
    void operator()(GDateTime* time) const { g_date_time_unref(time); }
    void operator()(GMimeParserOptions* options) const { g_mime_parser_options_free(options); }
};

using StreamPointer = std::unique_ptr<GMimeStream, ReleaseGlib>;
using ParserPointer = std::unique_ptr<GMimeParser, ReleaseGlib>;
using MessagePointer = std::unique_ptr<GMimeMessage, ReleaseGlib>;
using DateTimePointer = std::unique_ptr<GDateTime, ReleaseGlib>;
using ParserOptionsPointer = std::unique_ptr<GMimeParserOptions, ReleaseGlib>;

}  // namespace program
