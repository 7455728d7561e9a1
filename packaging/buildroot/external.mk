include $(sort $(wildcard $(BR2_EXTERNAL_OVOSHAREDBASE_PATH)/package/*/*.mk))
