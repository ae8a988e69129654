#pragma once

#include <qpdf/QPDFObjectHandle.hh>
#include <string>

namespace documents {

// The value of a key, null if there is none or `object` is no dictionary; the library would note
// the latter as damage, but a name in the place of a dictionary is often sound.
inline QPDFObjectHandle GetKeyOrNull(QPDFObjectHandle object, const std::string& key)
{
    return object.isDictionary() ? object.getKey(key) : QPDFObjectHandle::newNull();
}

}  // namespace documents
