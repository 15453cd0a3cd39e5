// Message objects and the checks made when a raw or sequence file is opened.
#pragma once

#include "vglobal/messages/file_check.h"
#include "vglobal/messages/file_open.h"
#include "vglobal/messages/message.h"
