#include "ListenerModule.h"

#include <stdio.h>

#include "PlugPlugEvent.h"

#define TEXT(text) ((text) != NULL ? (text) : "null")

__attribute__((visibility("default"))) void ListenerModule_Handle(const PlugPlugEvent* event,
                                                                  void* context)
{
    struct ListenerModuleRecord* const record = context;
    ++record->count;
    (void)snprintf(record->lastEvent, sizeof record->lastEvent, "%s, %d, %s, %s, %s",
                   TEXT(event->type), (int)event->scope, TEXT(event->appId),
                   TEXT(event->extensionId), TEXT(event->data));
}
