#pragma once

// Makes the process an application with windows, once.
void StartApplication();
