// A window that opens where its user left it, on either platform: each setting is read and written by one call.
#include <qelcoretypes.h>

#include <iostream>

int main() {
  TQelReg settings;  // of the current user
  TPoint place{100, 100};
  TSize size{800, 600};
  settings.ReadPoint(L"Window", L"Place", place);  // the first time it stays as it is
  settings.ReadSize(L"Window", L"Size", size);
  const int opened = settings.ReadInteger(L"Window", L"Opened", 0) + 1;
  std::cout << opened << ": " << size.cx << " x " << size.cy << " at " << place.x << ", " << place.y << '\n';

  place = {place.x + 20, place.y + 10};  // the user moves it
  const bool kept = settings.WritePoint(L"Window", L"Place", place) &&
                    settings.WriteSize(L"Window", L"Size", size) &&
                    settings.WriteInteger(L"Window", L"Opened", opened);
  return kept ? 0 : 1;
}
