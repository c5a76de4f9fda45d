#pragma once

#include "platform/portable/documentkind.h"

class QPainter;

/// Draws what tells the kind of a document on its sheet: see drawing.h for the units. `side` is the
/// icon's width in pixels: what would be too small to see is left out.
void drawDocumentKind(QPainter &painter, DocumentKind kind, int side);
