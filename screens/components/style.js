.pragma library

// The colours of the tree's style sheets and those that go with them, and the sizes of a gloved finger.
// Every ink is told from every ground that it stands on in full sun: a contrast of 4.5 and more.
var blue = "#0076BC";
var darkBlue = "#00517f";
var lightBlue = "#00A7E0";
var pale = "#c5e4f5";
var marked = "#e6f6fd";
var pressed = "#D4DFEC";
var text = "#333333";
var faintText = "#565656";
var line = "#CCCCCC";
var softLine = "#e8e8e8";
var frame = "#6f8fb3";
var surface = "#F7F7F7";
var warning = "#b3261e";

// The smallest side of what is touched, and the distance of what changes something from the rest.
var touch = 56;
var margin = 8;
var safeMargin = 16;

var fontPixels = 16;
var titlePixels = 20;

// Columns of a file list, right of the names.
var kindColumn = 84;
var dateColumn = 108;
var sizeColumn = 122;
var scrollColumn = 24;
