// The platform's balanced tree on the host: the red-black tree of the BSD
// <sys/tree.h> macros (libbsd's copy, header only). Items stay the caller's;
// the tree owns only its nodes. Each node carries the tree's comparator,
// because the macros compare two nodes without any other context.
#include "gvsim/gvsim.h"

#include <bsd/sys/tree.h>

#include <new>

namespace {

struct Node {
    RB_ENTRY(Node) link;
    void *item;
    avl_compare_func compare;
};

int compare_nodes(const Node *a, const Node *b) {
    return a->compare(a->item, b->item);
}

RB_HEAD(Nodes, Node);
RB_GENERATE_INTERNAL(Nodes, Node, link, compare_nodes, [[maybe_unused]] static)

long live_trees = 0;
int failing_creates = 0;

} // namespace

struct avl_tree {
    Nodes nodes = RB_INITIALIZER(&nodes);
    avl_compare_func compare;
    Node *cursor = nullptr; // the node First or Next answered last
};

namespace {

// The node holding exactly this item, found by walking the tree in order:
// callers' comparators need not agree with themselves (the interface-name
// order does not), so a search by key could miss it.
Node *node_of(avl_tree *tree, const void *item) {
    if (tree->cursor != nullptr && tree->cursor->item == item) {
        return tree->cursor;
    }
    for (Node *node = RB_MIN(Nodes, &tree->nodes); node != nullptr;
         node = RB_NEXT(Nodes, &tree->nodes, node)) {
        if (node->item == item) {
            return node;
        }
    }
    return nullptr;
}

// The smallest node that key compares below; null when none does.
Node *node_after_key(avl_tree *tree, const void *key) {
    Node *best = nullptr;
    Node *node = RB_ROOT(&tree->nodes);
    while (node != nullptr) {
        if (tree->compare(key, node->item) < 0) {
            best = node;
            node = RB_LEFT(node, link);
        } else {
            node = RB_RIGHT(node, link);
        }
    }
    return best;
}

void *answer(avl_tree *tree, Node *node) {
    tree->cursor = node;
    return node != nullptr ? node->item : nullptr;
}

} // namespace

avl_tree *avl_Create(avl_compare_func compare) {
    if (compare == nullptr) {
        return nullptr;
    }
    if (failing_creates > 0) {
        --failing_creates;
        return nullptr;
    }
    auto *tree = new (std::nothrow) avl_tree;
    if (tree != nullptr) {
        tree->compare = compare;
        ++live_trees;
    }
    return tree;
}

int avl_Insert(avl_tree *tree, void *item) {
    if (tree == nullptr || item == nullptr) {
        return -1;
    }
    auto *node = new (std::nothrow) Node{{}, item, tree->compare};
    if (node == nullptr) {
        return -1;
    }
    // An item that compares equal to one already held is refused; the
    // caller keeps it.
    if (RB_INSERT(Nodes, &tree->nodes, node) != nullptr) {
        delete node;
        return -1;
    }
    return 0;
}

void *avl_Find(avl_tree *tree, const void *key) {
    if (tree == nullptr || key == nullptr) {
        return nullptr;
    }
    Node probe{{}, const_cast<void *>(key), tree->compare};
    const Node *found = RB_FIND(Nodes, &tree->nodes, &probe);
    return found != nullptr ? found->item : nullptr;
}

void *avl_First(avl_tree *tree) {
    return tree != nullptr ? answer(tree, RB_MIN(Nodes, &tree->nodes)) : nullptr;
}

void *avl_Next(avl_tree *tree, const void *item) {
    if (tree == nullptr || item == nullptr) {
        return nullptr;
    }
    Node *node = node_of(tree, item);
    return answer(tree, node != nullptr ? RB_NEXT(Nodes, &tree->nodes, node)
                                        : node_after_key(tree, item));
}

void avl_Destroy(avl_tree *tree, avl_free_func destroy) {
    if (tree == nullptr) {
        return;
    }
    Node *node = RB_MIN(Nodes, &tree->nodes);
    while (node != nullptr) {
        Node *next = RB_NEXT(Nodes, &tree->nodes, node);
        RB_REMOVE(Nodes, &tree->nodes, node);
        if (destroy != nullptr) {
            destroy(node->item);
        }
        delete node;
        node = next;
    }
    delete tree;
    --live_trees;
}

long gvsim_live_trees(void) {
    return live_trees;
}

void gvsim_tree_fail_creates(int count) {
    failing_creates = count > 0 ? count : 0;
}
