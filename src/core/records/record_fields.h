// Declares the fields of records: each has a getter and a setter of its own name. Included by record headers
// only; they undefine both words again behind their last field.
//
//   KVO_FIELD(Long, XPos)      plain storing
//   KVO_DIRTY(Integer, Volume) the setter marks the record as differing from the file

#define KVO_FIELD(Type, Name)                                    \
 public:                                                         \
  [[nodiscard]] const Type& Name() const { return field##Name; } \
  void Name(Type value) { field##Name = std::move(value); }      \
                                                                 \
 private:                                                        \
  Type field##Name {}

#define KVO_DIRTY(Type, Name)                                    \
 public:                                                         \
  [[nodiscard]] const Type& Name() const { return field##Name; } \
  void Name(Type value) {                                        \
    field##Name = std::move(value);                              \
    fieldIsDirty = true;                                         \
  }                                                              \
                                                                 \
 private:                                                        \
  Type field##Name {}
