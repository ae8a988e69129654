#include "MenuState.h"

MenuState gMenuState;
