#include "GLogAppender.h"

GLogAppender::~GLogAppender() = default;
