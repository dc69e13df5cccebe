#ifndef TREESTYLE_H
#define TREESTYLE_H

#include <QString>

/**
 * Style sheets of the tree, sized for a gloved finger: rows of 45 pixels, check boxes of 32, scroll
 * bars of 40. Their images come from the plugin's bundle.
 */
namespace TreeStyle {
/** For the horizontal scroll bar. */
QString horizontalScrollBar();

/** For the vertical scroll bar. */
QString verticalScrollBar();

/** For the header. */
QString header();

/** For the tree view. Two of its rules reach every child widget of the view. */
QString tree();
} // namespace TreeStyle

#endif // TREESTYLE_H
