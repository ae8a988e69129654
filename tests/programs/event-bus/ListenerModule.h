#ifndef LISTENER_MODULE_H
#define LISTENER_MODULE_H

/* What the listener "ListenerModule_Handle" writes into its context: how often it was called, and
   the fields of the last event in their order. */
struct ListenerModuleRecord {
    int count;
    char lastEvent[200];
};

#endif
