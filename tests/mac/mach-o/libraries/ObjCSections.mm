#include "libraries/ObjCSections.h"

#import <objc/runtime.h>

#include "image/LoadError.h"

namespace macho {

namespace {

struct MethodList {
    uint32_t entrySize;
    uint32_t count;
};

struct MethodEntry {
    const char* name;
    const char* types;
    IMP function;
};

struct Category {
    const char* name;
    Class type;
    const MethodList* instanceMethods;
    const MethodList* classMethods;
    const void* protocols;
    const void* properties;
};

// The parts of Objective-C that the loader has code for, or that need none.
constexpr const char* kKnownSections[] = {"__objc_catlist",   "__objc_classrefs", "__objc_const",
                                          "__objc_imageinfo", "__objc_selrefs",   "__objc_methname",
                                          "__objc_methtype",  "__objc_classname"};

void RefuseUnknownSections(const Image& image)
{
    for (const Section& section : image.sections) {
        if (section.name.compare(0, 7, "__objc_") != 0) continue;
        bool isKnown = false;
        for (const char* name : kKnownSections) isKnown = isKnown || section.name == name;
        if (!isKnown) throw LoadError(image.path + ": section " + section.name + " is unknown");
    }
}

void AddMethods(const Image& image, const Category& category, Class type, const MethodList* list)
{
    if (list == nullptr) return;
    if (list->entrySize != sizeof(MethodEntry)) {
        throw LoadError(image.path + ": the methods of category " + category.name +
                        " have an unknown form");
    }
    const auto* const entries = reinterpret_cast<const MethodEntry*>(list + 1);
    for (uint32_t index = 0; index < list->count; ++index) {
        const MethodEntry& entry = entries[index];
        (void)class_addMethod(type, sel_registerName(entry.name), entry.function, entry.types);
    }
}

}  // namespace

void RegisterObjectiveC(const Image& image, const Memory& memory)
{
    RefuseUnknownSections(image);
    if (const Section* const section = image.Find("__objc_selrefs")) {
        for (uint64_t offset = 0; offset < section->size; offset += 8) {
            uint64_t& pointer = memory.PointerAt(section->address + offset);
            const SEL selector = sel_registerName(reinterpret_cast<const char*>(pointer));
            pointer = reinterpret_cast<uint64_t>(selector);
        }
    }
    if (const Section* const section = image.Find("__objc_catlist")) {
        for (uint64_t offset = 0; offset < section->size; offset += 8) {
            const auto& category =
                *reinterpret_cast<const Category*>(memory.PointerAt(section->address + offset));
            AddMethods(image, category, category.type, category.instanceMethods);
            AddMethods(image, category, object_getClass(reinterpret_cast<id>(category.type)),
                       category.classMethods);
        }
    }
}

}  // namespace macho
