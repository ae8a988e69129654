#pragma once

#include <Foundation/NSFiles.h>
#include <Foundation/NSGeometry.h>
#include <Foundation/NSObject.h>
#include <Foundation/NSRunLoop.h>
#include <Foundation/NSString.h>
