// Buffers of bytes and of text.
#pragma once

#include <krcore/text/krrawbuffer.h>
#include <krcore/text/krstringbuffers.h>
#include <krcore/text/krtextbuffers.h>
