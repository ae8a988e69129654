#pragma once

#include <string_view>

// Names for the records, operators, marks and keys of the native format. docs/NATIVE.md describes
// each one under the name that it has here.
namespace documents {

// What is found in the lines of a native document, and in the containers around it.
namespace record {

// Keys of the PDF page that holds the document.
constexpr char kPieceInfo[] = "/PieceInfo";
constexpr char kProgramPiece[] = "/Illustrator";
constexpr char kPrivate[] = "/Private";
constexpr char kPrivateData[] = "/AIPrivateData";  // with the number of the block, from 1
constexpr char kBlockCount[] = "/NumBlock";

// Marks at the start of a line.
constexpr std::string_view kFileFormat = "%AI5_FileFormat";
constexpr std::string_view kDataStream = "%AI9_DataStream";
constexpr std::string_view kZStandardStream = "%AI24_DataStream";
constexpr std::string_view kCompressedData = "%AI12_CompressedData";
constexpr std::string_view kZStandardData = "%AI24_ZStandard_Data";
constexpr std::string_view kBeginData = "%%BeginData:";
constexpr std::string_view kEndData = "%%EndData";
constexpr std::string_view kEndComments = "%%EndComments";
constexpr std::string_view kStyled = "%_";  // the line is the user's own form of styled art

// Records of version 11 and later.
constexpr std::string_view kTextDocument = "/AI11TextDocument :";
constexpr std::string_view kAscii85 = "/ASCII85Decode ,";
constexpr std::string_view kAscii85End = "~>";
constexpr std::string_view kTextFrame = "/AI11Text :";
constexpr std::string_view kFreeUndo = "/FreeUndo";
constexpr std::string_view kFrameIndex = "/FrameIndex";
constexpr std::string_view kStoryIndex = "/StoryIndex";
constexpr std::string_view kArt = "/Art :";
constexpr std::string_view kLegacyText = "/ArtLegacyText";

// Operators of versions up to 10, each after its operands.
constexpr std::string_view kFontAlias = "TZ";
constexpr std::string_view kBeginText = "To";
constexpr std::string_view kSetFont = "Tf";
constexpr std::string_view kShow = "Tx";
constexpr std::string_view kShowAtEnd = "TX";
constexpr std::string_view kShowJustified = "Tj";
constexpr std::string_view kEndText = "TO";

// The header's list of fonts, and a font in it that only the program itself has.
constexpr std::string_view kDocumentFonts = "DocumentFonts";
constexpr std::string_view kInvisibleFont = "AdobeInvisFont";

// Placed files.
constexpr char kPlaced = '`';
constexpr std::string_view kLinkedRaster = "0 XG";

// Keys and comments under which this host stores what it adds beside a native document.
constexpr char kHostPiece[] = "/HeadlessHost";
constexpr char kHostTexts[] = "/Texts";
constexpr char kHostFont[] = "/Font";
constexpr char kHostLength[] = "/Length";
constexpr char kHostFiles[] = "/Files";
constexpr std::string_view kHostLine = "%HeadlessHost_";
constexpr std::string_view kHostTextLine = "%HeadlessHost_Text: ";
constexpr std::string_view kHostFileLine = "%HeadlessHost_File: ";

}  // namespace record

// Keys of the text tree. The same number means different things in different dictionaries, so
// each meaning has a name.
namespace treekey {

// A key in its two forms: version 11 writes words, later versions write numbers.
struct Key {
    std::string_view number;
    std::string_view word;
    friend bool operator==(std::string_view key, const Key& wanted)
    {
        return key == wanted.number || key == wanted.word;
    }
    friend bool operator!=(std::string_view key, const Key& wanted) { return !(key == wanted); }
};

// The tree itself.
constexpr Key kDocumentResources = {"0", "DocumentResources"};
constexpr Key kDocumentObjects = {"1", "DocumentObjects"};

// DocumentResources, and the lists in it.
constexpr Key kFontSet = {"1", "FontSet"};
constexpr Key kStyleSheetSet = {"5", "StyleSheetSet"};
constexpr Key kResources = {"0", "Resources"};
constexpr Key kResource = {"0", "Resource"};
constexpr Key kIdentifier = {"0", "Identifier"};
constexpr Key kName = {"0", "Name"};

// A style: a style sheet of the list, or the style of a run itself.
constexpr Key kParent = {"5", "Parent"};
constexpr Key kFeatures = {"6", "Features"};
constexpr Key kFont = {"0", "Font"};

// DocumentObjects.
constexpr Key kTextObjects = {"1", "TextObjects"};
constexpr Key kDefaultFeatures = {"2", "OriginalNormalStyleFeatures"};

// A story.
constexpr Key kModel = {"0", "Model"};
constexpr Key kView = {"1", "View"};

// A story's Model.
constexpr Key kStoryText = {"0", "Text"};
constexpr Key kStyleRun = {"6", "StyleRun"};
constexpr Key kRunArray = {"0", "RunArray"};
constexpr Key kRunData = {"0", "RunData"};
constexpr Key kStyleSheet = {"0", "StyleSheet"};
constexpr Key kLength = {"1", "Length"};

// A story's View, and the pieces of the layout in it. The names are made up: no document
// with words for these keys is known.
constexpr std::string_view kFrames = "0";
constexpr std::string_view kFrameNumber = "0";
constexpr std::string_view kLayout = "2";
constexpr std::string_view kPieceKind = "99";
constexpr std::string_view kPieceFrame = "10";
constexpr std::string_view kPieceParts = "6";
constexpr std::string_view kSegmentText = "15";
constexpr std::string_view kSegmentLength = "0";

// Values of PieceKind.
constexpr std::string_view kKindFrame = "F";
constexpr std::string_view kKindSegment = "S";

}  // namespace treekey

}  // namespace documents
