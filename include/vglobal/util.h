// The text and value utilities: range lists, text fitting, paths, programs and
// installed versions, instrument data items and logs.
#pragma once

#include "vglobal/util/data_items.h"
#include "vglobal/util/error_message.h"
#include "vglobal/util/instance_channel.h"
#include "vglobal/util/paths.h"
#include "vglobal/util/programs.h"
#include "vglobal/util/range_parse.h"
#include "vglobal/util/string_split.h"
#include "vglobal/util/text_fit.h"
