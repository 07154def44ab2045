// Who wants to hear of changes. The subjects belong to the user interface; lists of observers are kept here
// too.
#ifndef QEL_OBSERVER_H
#define QEL_OBSERVER_H

class CSubject;

class CObserver {
 public:
  // `subject` has changed.
  virtual void Update(CSubject* subject) = 0;

 protected:
  ~CObserver() = default;  // lists of observers own none of them
};

#endif  // QEL_OBSERVER_H
