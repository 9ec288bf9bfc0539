package com.corvane.tv.zntopology;

import java.util.List;

/**
 * A container and what it contains.
 *
 * @param container the container
 * @param contained what is in it
 */
public record ContainmentAss(AssEndPoint container, List<AssEndPoint> contained) {}
