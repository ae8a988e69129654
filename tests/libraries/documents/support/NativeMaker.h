#pragma once

#include <string>

#include "documents/OpenDocument.h"
#include "documents/write/Compress.h"
#include "documents/write/NativeWriter.h"

// Tests write small native documents with the library's writer.
using NativeMaker = documents::NativeWriter;
using documents::EncodeAscii85;
using documents::PackZlib;
using documents::PackZstandard;

// Leaves a native document unpacked, as versions 9 to 11 store it in a PDF.
std::string PackPlain(const std::string& text);

// Wrap a packed document in a file. The page of the PDF shows Alpha-Regular.
std::string WrapInPdf(const std::string& native, size_t blocks = 3);
std::string WrapInEps(const std::string& native);
// As version 24 and later do: the document's lines up to its format mark are not packed.
std::string WrapInNewEps(const std::string& native);
std::string WrapInDosEps(const std::string& eps);

// Opens the document, with CR as line end, packed with zlib, in a PDF.
documents::OpenResult OpenNative(const NativeMaker& maker);
