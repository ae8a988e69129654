#pragma once

// Makes the process an application that can show windows. Idempotent.
void StartApplication();
