package com.corvane.tv.zntopology;

/**
 * How a monitored address answers.
 *
 * @param status its status
 * @param lastPingTime when it was last asked, in seconds UTC
 * @param lastStatusUpdateTime when its status last changed, in seconds UTC
 */
public record PingStatus(ObjectStatus status, long lastPingTime, long lastStatusUpdateTime) {}
