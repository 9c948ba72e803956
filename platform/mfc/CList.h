// MFC's doubly linked list. A POSITION stays valid until its own item is removed.
#pragma once
#include "CObject.h"

template <class TYPE, class ARG_TYPE = const TYPE&>
class CList : public CObject {
public:
    explicit CList(INT_PTR = 10) {}   // a hint of the size, not heeded
    ~CList() override { RemoveAll(); }

    INT_PTR GetCount() const { return m_count; }
    INT_PTR GetSize() const { return m_count; }
    BOOL IsEmpty() const { return m_count == 0; }

    TYPE& GetHead() { return m_head->item; }
    const TYPE& GetHead() const { return m_head->item; }
    TYPE& GetTail() { return m_tail->item; }
    const TYPE& GetTail() const { return m_tail->item; }
    POSITION AddHead(ARG_TYPE item) { return Link(new Node{item, nullptr, m_head}); }
    POSITION AddTail(ARG_TYPE item) { return Link(new Node{item, m_tail, nullptr}); }
    TYPE RemoveHead() { return Take(m_head); }
    TYPE RemoveTail() { return Take(m_tail); }
    void RemoveAll()
    {
        while (m_head != nullptr)
            RemoveAt(m_head);
    }

    POSITION GetHeadPosition() const { return m_head; }
    POSITION GetTailPosition() const { return m_tail; }
    TYPE& GetNext(POSITION& position) { return Step(position, &Node::next); }
    const TYPE& GetNext(POSITION& position) const { return Step(position, &Node::next); }
    TYPE& GetPrev(POSITION& position) { return Step(position, &Node::previous); }
    const TYPE& GetPrev(POSITION& position) const { return Step(position, &Node::previous); }
    TYPE& GetAt(POSITION position) { return At(position)->item; }
    const TYPE& GetAt(POSITION position) const { return At(position)->item; }
    void SetAt(POSITION position, ARG_TYPE item) { At(position)->item = item; }
    void RemoveAt(POSITION position)
    {
        Node* node = At(position);
        (node->previous != nullptr ? node->previous->next : m_head) = node->next;
        (node->next != nullptr ? node->next->previous : m_tail) = node->previous;
        delete node;
        --m_count;
    }
    // Without a position the item goes to the head, or behind the tail.
    POSITION InsertBefore(POSITION position, ARG_TYPE item)
    {
        return position == nullptr ? AddHead(item) : Link(new Node{item, At(position)->previous, At(position)});
    }
    POSITION InsertAfter(POSITION position, ARG_TYPE item)
    {
        return position == nullptr ? AddTail(item) : Link(new Node{item, At(position), At(position)->next});
    }

    POSITION Find(ARG_TYPE item, POSITION startAfter = nullptr) const
    {
        Node* node = startAfter == nullptr ? m_head : At(startAfter)->next;
        while (node != nullptr && !(node->item == item))
            node = node->next;
        return node;
    }
    POSITION FindIndex(INT_PTR index) const
    {
        Node* node = index < 0 ? nullptr : m_head;
        for (; node != nullptr && index > 0; --index)
            node = node->next;
        return node;
    }

private:
    struct Node {
        TYPE item;
        Node* previous;
        Node* next;
    };
    static Node* At(POSITION position) { return static_cast<Node*>(position); }
    static TYPE& Step(POSITION& position, Node* Node::*link)
    {
        Node* node = At(position);
        position = node->*link;
        return node->item;
    }
    POSITION Link(Node* node)
    {
        (node->previous != nullptr ? node->previous->next : m_head) = node;
        (node->next != nullptr ? node->next->previous : m_tail) = node;
        ++m_count;
        return node;
    }
    TYPE Take(Node* node)
    {
        TYPE item = node->item;
        RemoveAt(node);
        return item;
    }

    Node* m_head = nullptr;
    Node* m_tail = nullptr;
    INT_PTR m_count = 0;
};
