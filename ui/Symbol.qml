import Nestlet.Companion

/// One of the system's symbols, as large as one in a text of that `size`: its box is a square about
/// 1.3 times as high, and whatever size the item is given, the symbol stands in its middle. With a
/// `secondaryColor` the shape behind the mark has that colour and the mark `color`. Not accessible:
/// the control around it is.
SymbolItem {
    color: Theme.primary
}
