// News: headlines of the kind that the screen selects.
//
// Init text:       request tag, NewsInit; what follows is not read.
// Display buffer:  NewsDisplay, one headline at each batch end for as long as some wait.
#ifndef TICKMUX_MODULE_LAYOUTS_RRNEWS01_H
#define TICKMUX_MODULE_LAYOUTS_RRNEWS01_H

#include <cstddef>

#include "module/wire/shapes.h"

struct NewsInit {
    char Unused1[20];
    char Selector;  // '0': all headlines; '1', '2', '9': those whose category begins so; else none
    char Unused2;
};
static_assert(sizeof(NewsInit) == 22 && alignof(NewsInit) == 1);

template <class Visitor>
void Describe(const NewsInit& init, Visitor&& visit) {
    visit("Unused1", init.Unused1);
    visit("Selector", init.Selector);
    visit("Unused2", init.Unused2);
}

struct NewsRow {
    char Date[8];
    char Time[6];
    char Label[8];  // the source, by category
    char Title[80];
    char NewsRef1[10];
    char NewsRef2[6];
    char Category[2];
    char HasCode;  // '1': the headline concerns Code
    char Code[10];
};
static_assert(sizeof(NewsRow) == 131 && alignof(NewsRow) == 1);
static_assert(offsetof(NewsRow, Title) == 22 && offsetof(NewsRow, HasCode) == 120);

template <class Visitor>
void Describe(const NewsRow& row, Visitor&& visit) {
    visit("Date", row.Date);
    visit("Time", row.Time);
    visit("Label", row.Label);
    visit("Title", row.Title);
    visit("NewsRef1", row.NewsRef1);
    visit("NewsRef2", row.NewsRef2);
    visit("Category", row.Category);
    visit("HasCode", row.HasCode);
    visit("Code", row.Code);
}

struct NewsFront {
    RequestTag Tag;
    char NewsKind;
    RepeatHead Repeat;
};
static_assert(sizeof(NewsFront) == 27);

template <class Visitor>
void Describe(const NewsFront& front, Visitor&& visit) {
    visit("NewsKind", front.NewsKind);
    visit("Repeat", front.Repeat);
}

struct NewsDisplay {
    NewsFront Front;
    NewsRow Row;
};
static_assert(sizeof(NewsDisplay) == 158);

#endif
