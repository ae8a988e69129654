#ifndef LISTENER_MODULE_H
#define LISTENER_MODULE_H

/* The context of the listener "ListenerModule_Handle", into which it writes how often it was called
   and the members of the last event in their order. */
struct ListenerModuleRecord {
    int count;
    char lastEvent[200];
};

#endif
