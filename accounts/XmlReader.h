#pragma once

#include "platform/XmlReader.h"

namespace accounts::rowset {

using XmlReader = xml::Reader;
/// What reading throws for a text that is no rowset.
using NotARowset = xml::Malformed;

}  // namespace accounts::rowset
