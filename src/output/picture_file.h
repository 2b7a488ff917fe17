#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <string>
#include <vector>

#include "graph/graph_properties.h"

namespace trendaro {

// Kinds of picture files, told by the ending of the name without regard to case.
enum class PictureKind { Unknown, Png, Bmp, Jpeg, Svg, Pdf };
PictureKind picture_kind(const std::string& path);

// The graph as an image of `size` pixels. Empty where there is no memory for it.
QImage graph_image(const GraphProperties& shown, QSize size);

// x of the edges of the pixel columns over which such a picture draws its curves, from the least on. Needs an
// axis that is not inverted.
std::vector<f64> picture_columns(const GraphProperties& shown, PictureKind kind, QSize size);

// The bytes of a picture file of the graph, `size` pixels large; a pixel of a PDF page is 1/96 inch. Empty
// for an unknown kind, or when the picture could not be made.
QByteArray graph_picture(const GraphProperties& shown, PictureKind kind, QSize size);

// Saves the graph as the picture that the file's name asks for. The file appears whole or not at all. False
// when it could not be made or written.
bool save_picture(const GraphProperties& shown, const std::string& path, QSize size);

}  // namespace trendaro
