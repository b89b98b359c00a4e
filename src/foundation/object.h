#pragma once
// Roots of the class family: an object that knows its class, a record that can be emptied and dumped, and a
// value.

#include <string>

namespace zelkova {

class Object {
public:
    Object() = default;
    Object(const Object&) = default;
    Object& operator=(const Object&) = default;
    virtual ~Object() = default;

    // The class name and "::toString()"; the texts are there for overriders.
    virtual std::string toString(std::string, std::string, std::string, std::string);
    std::string getClassName() const;
};

class DataObject : public Object {
public:
    DataObject() { DataObject::clear(); }

    virtual void clear() {}
    using Object::toString;
    // The dump of the record, its fields joined by the separator; here the class name alone.
    virtual std::string toString(const std::string& separator) const;
};

class Type : public virtual Object {
public:
    virtual void clear() = 0;
    using Object::toString;
    virtual std::string toString() const { return {}; }
};

} // namespace zelkova
